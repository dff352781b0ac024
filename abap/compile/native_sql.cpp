// EXEC SQL.
#include <algorithm>
#include <string>
#include <utility>

#include "abap/compile/database_values.h"
#include "abap/compile/native_sql_text.h"
#include "abap/compile/open_sql_selection.h"

namespace qor::abap {

namespace {

struct SeleccionNativa {
    std::string texto;
    std::vector<Operando> entradas;
    std::vector<Operando> destinos;
    bool enRegistro = false;        // a record is filled component by component: it may have more or fewer of them
    bool principal = false;         // into the table of the main loop
    const Rutina* forma = nullptr;  // PERFORMING
};

class SeleccionarNativo : public Instruccion {
public:
    explicit SeleccionarNativo(SeleccionNativa seleccion) : s_(std::move(seleccion)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        std::vector<ValorDeBase> valores(s_.entradas.size());
        for (std::size_t i = 0; i < valores.size(); ++i) LeerValor(maquina.Resolver(s_.entradas[i]), valores[i]);
        const auto filas = maquina.Alrededor().base.SeleccionarNativo(s_.texto, valores);
        const std::int64_t cuantas = s_.forma == nullptr ? TomarPrimera(maquina, *filas) : Recorrer(maquina, *filas);
        maquina.PonerSubrc(cuantas > 0 ? 0 : 4);
        maquina.PonerSY("DBCNT", cuantas);
        return siguiente;
    }

private:
    std::int64_t TomarPrimera(Maquina& maquina, FilasDeBase& filas) const {
        std::vector<ValorDeBase> fila;
        if (!filas.Siguiente(fila)) return 0;
        Poner(maquina, fila);
        return 1;
    }

    // Calls the form for each row. Where the report has no main loop of its own, each one is a record.
    std::int64_t Recorrer(Maquina& maquina, FilasDeBase& filas) const {
        const bool registros = s_.principal && !maquina.Suyo().hayBuclePrincipal;
        std::vector<ValorDeBase> fila;
        std::int64_t cuantas = 0;
        try {
            while (filas.Siguiente(fila)) {
                ++cuantas;
                const auto numero = static_cast<std::size_t>(cuantas);
                if (registros && !maquina.EmpezarRegistro(numero, numero)) continue;
                Poner(maquina, fila);
                maquina.Llamar(*s_.forma);
            }
        } catch (const SaltoDeReporte& salto) {
            if (salto.adonde != SaltoDeReporte::Adonde::FinDeSQL) throw;
        }
        if (registros) maquina.TerminarRegistros();
        return cuantas;
    }

    void Poner(Maquina& maquina, const std::vector<ValorDeBase>& fila) const {
        if (!s_.enRegistro && fila.size() != s_.destinos.size()) {
            throw Volcado("DBIF_DSQL2_SQL_ERROR", "The SELECT has " + std::to_string(fila.size()) + " columns for " +
                                                      std::to_string(s_.destinos.size()) + " variables");
        }
        const std::size_t cuantos = std::min(fila.size(), s_.destinos.size());
        for (std::size_t i = 0; i < cuantos; ++i) PonerValor(fila[i], maquina.Destino(s_.destinos[i]));
    }

    SeleccionNativa s_;
};

// A record stands for its components.
void Agregar(Compilador& c, const Palabra& palabra, SeleccionNativa& seleccion) {
    Operando destino = LeerDestinoDe(c, palabra);
    if (destino.estructura == nullptr) return seleccion.destinos.push_back(std::move(destino));
    seleccion.enRegistro = true;
    for (const auto& componente : destino.estructura->componentes) {
        seleccion.destinos.push_back(c.ComponenteDe(destino, componente));
    }
}

}  // namespace

bool LeerEXEC(Compilador& c, Lectura& l) {
    l.Exige("SQL"_c, "SQL");
    SeleccionNativa seleccion;
    if (l.Toma("PERFORMING"_c)) seleccion.forma = &c.PedirForma(l.Tomada());
    l.Fin();
    const auto leido = LeerTextoNativo(c.TextoHasta("ENDEXEC"));
    for (const auto comentario : leido.comentarios) c.Ocultar(comentario, ' ');
    for (const auto citado : leido.citados) c.Ocultar(citado, 'X');
    if (leido.primera.texto.empty()) throw FallaDeSentencia{l.Primera(), "a SELECT was expected behind EXEC SQL"};
    if (leido.primera.clave != "SELECT"_c) throw FallaDeSentencia{leido.primera, "native SQL is practised with SELECT only"};
    if (!leido.sobrantes.empty()) {
        throw FallaDeSentencia{leido.sobrantes.front(), "variables of the report, each behind a colon, were expected behind INTO"};
    }
    for (const auto& palabra : leido.entradas) seleccion.entradas.push_back(LeerPalabra(c, palabra));
    for (const auto& palabra : leido.destinos) {
        Agregar(c, palabra, seleccion);
        seleccion.principal = seleccion.principal || c.EsTablaPrincipal(palabra.texto.substr(0, palabra.largoBase));
    }
    seleccion.texto = leido.texto;
    c.Emitir<SeleccionarNativo>(std::move(seleccion));
    return true;
}

}  // namespace qor::abap
