#include "abap/compile/call_transaction.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "abap/values/conversion.h"

namespace qor::abap {

namespace {

// The components of BDCMSGCOLL that get something.
enum Parte : std::size_t { tcode, dyname, dynumb, msgtyp, msgspra, msgid, msgnr, msgv1, msgv2, msgv3, msgv4, fldname, partes };
constexpr std::array<const char*, partes> nombres = {"TCODE", "DYNAME", "DYNUMB", "MSGTYP", "MSGSPRA", "MSGID",
                                                     "MSGNR", "MSGV1",  "MSGV2",  "MSGV3",  "MSGV4",   "FLDNAME"};
using Componentes = std::array<const Componente*, partes>;

Componentes BuscarComponentes(const Estructura* linea) {
    Componentes componentes{};
    for (std::size_t i = 0; i < partes && linea != nullptr; ++i) componentes[i] = linea->Buscar(nombres[i]);
    return componentes;
}

class LlamarTransaccion : public Instruccion {
public:
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const std::string codigo = TextoPlano(maquina.Resolver(transaccion));
        const TablaInterna ninguna{TipoDeCampo{}};
        const TablaInterna& lineas = filas ? maquina.Tabla(*filas) : ninguna;
        const auto resultado =
            maquina.Alrededor().transacciones.Llamar(codigo, lineas, Letra(maquina, modo), Letra(maquina, actualizacion));
        if (mensajes) Agregar(maquina, codigo, resultado);
        if (!resultado.mensajes.empty()) PonerMensaje(maquina, resultado.mensajes.back());
        maquina.PonerSubrc(resultado.subrc);
        return siguiente;
    }

    Operando transaccion;
    std::optional<OperandoDeTabla> filas;  // USING
    std::optional<Operando> modo;
    std::optional<Operando> actualizacion;
    std::optional<OperandoDeTabla> mensajes;  // MESSAGES INTO
    Componentes componentes{};                // of its line, where that is known

private:
    // A without the addition, and where it is blank.
    static char Letra(Maquina& maquina, const std::optional<Operando>& operando) {
        const std::string texto = operando ? TextoPlano(maquina.Resolver(*operando)) : std::string();
        return texto.empty() ? 'A' : texto.front();
    }

    // Behind the rows that the table has.
    void Agregar(Maquina& maquina, const std::string& codigo, const ResultadoDeTransaccion& resultado) const {
        TablaInterna& tabla = maquina.Tabla(*mensajes);
        const auto suyos = mensajes->linea.estructura == nullptr ? BuscarComponentes(tabla.Linea().estructura) : componentes;
        for (const auto& mensaje : resultado.mensajes) {
            const std::string_view tipo(&mensaje.tipo, 1);
            const std::array<std::string_view, partes> valores = {codigo,
                                                                  mensaje.programa,
                                                                  mensaje.dynpro,
                                                                  tipo,
                                                                  maquina.Alrededor().idioma,
                                                                  mensaje.id,
                                                                  mensaje.numero,
                                                                  mensaje.variables[0],
                                                                  mensaje.variables[1],
                                                                  mensaje.variables[2],
                                                                  mensaje.variables[3],
                                                                  mensaje.campo};
            tabla.Agregar();
            const Campo fila = tabla.CampoDeFila(tabla.Filas() - 1);
            PonerInicial(fila, tabla.Linea().estructura);
            for (std::size_t i = 0; i < partes; ++i) {
                if (suyos[i] != nullptr) Mover(CampoDe(valores[i]), CampoDeComponente(*suyos[i], fila.datos));
            }
        }
        tabla.Cambia();
    }

    static void PonerMensaje(Maquina& maquina, const MensajeDeTransaccion& mensaje) {
        maquina.PonerSY("MSGTY", std::string_view(&mensaje.tipo, 1));
        maquina.PonerSY("MSGID", mensaje.id);
        Mover(CampoDe(mensaje.numero), maquina.CampoSY("MSGNO"));
        constexpr std::array variables = {"MSGV1", "MSGV2", "MSGV3", "MSGV4"};
        for (std::size_t i = 0; i < variables.size(); ++i) maquina.PonerSY(variables[i], mensaje.variables[i]);
    }
};

// OPTIONS FROM a structure like CTU_PARAMS.
void LeerOpciones(Compilador& c, Lectura& l, LlamarTransaccion& llamada) {
    l.Exige("FROM"_c, "FROM");
    const Palabra palabra = l.Actual();
    const Operando opciones = c.LeerCampo(l);
    const auto parte = [&](const char* nombre) {
        const auto* componente = opciones.estructura == nullptr ? nullptr : opciones.estructura->Buscar(nombre);
        if (componente == nullptr) throw FallaDeSentencia{palabra, "a structure like CTU_PARAMS was expected"};
        return c.ComponenteDe(opciones, *componente);
    };
    llamada.modo = parte("DISMODE");
    llamada.actualizacion = parte("UPDMODE");
}

}  // namespace

void LeerCALL_TRANSACTION(Compilador& c, Lectura& l) {
    auto llamada = std::make_unique<LlamarTransaccion>();
    llamada->transaccion = c.LeerOperando(l);
    while (l.Hay()) {
        if (l.Toma("USING"_c)) {
            llamada->filas = c.LeerTabla(l);
        } else if (l.Toma("MODE"_c)) {
            llamada->modo = c.LeerOperando(l);
        } else if (l.Toma("UPDATE"_c)) {
            llamada->actualizacion = c.LeerOperando(l);
        } else if (l.Toma("MESSAGES"_c)) {
            l.Exige("INTO"_c, "INTO");
            llamada->mensajes = c.LeerTabla(l);
            llamada->componentes = BuscarComponentes(llamada->mensajes->linea.estructura);
        } else if (l.Toma("OPTIONS"_c)) {
            LeerOpciones(c, l, *llamada);
        } else if (l.Toma("AND"_c)) {
            l.Exige("SKIP"_c, "SKIP");
            l.Exige("FIRST"_c, "FIRST");
            l.Exige("SCREEN"_c, "SCREEN");
        } else {
            l.NoSePractica();
        }
    }
    c.Emitir(std::move(llamada));
}

}  // namespace qor::abap
