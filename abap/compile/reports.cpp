// INSERT REPORT: a program of the system itself.
#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"

namespace qor::abap {

namespace {

// INSERT REPORT NAME FROM TABLE
void LeerINSERT_REPORT(Compilador& c, Lectura& l) {
    auto nombre = c.LeerOperando(l);
    l.Exige("FROM"_c, "FROM");
    auto tabla = c.LeerTabla(l);
    l.Fin();
    c.EmitirAccion([nombre = std::move(nombre), tabla = std::move(tabla)](Maquina& maquina) {
        const TablaInterna& filas = maquina.Tabla(tabla);
        std::vector<std::string> lineas;
        lineas.reserve(filas.Filas());
        for (std::size_t i = 0; i < filas.Filas(); ++i) lineas.push_back(TextoPlano(filas.CampoDeFila(i)));
        const bool tomado = maquina.Alrededor().programas.Insertar(TextoPlano(maquina.Resolver(nombre)), lineas);
        maquina.PonerSubrc(tomado ? 0 : 4);
    });
}

}  // namespace

bool LeerDeProgramas(Compilador& c, Lectura& l) {
    if (l.Primera().clave != "INSERT"_c || !l.Es("REPORT"_c) || !l.Es("FROM"_c, 2)) return false;
    l.Avanzar();
    LeerINSERT_REPORT(c, l);
    return true;
}

}  // namespace qor::abap
