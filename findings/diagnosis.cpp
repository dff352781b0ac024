#include "findings/diagnosis.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/text.h"
#include "model/cells.h"

namespace qor {

namespace {

using abap::Falta;
using Clase = Falta::Clase;
using Parte = Lugar::Parte;

constexpr int codigoSinRegla = 399;

bool EsTextoDelUsuario(const Lugar& lugar) {
    switch (lugar.parte) {
        case Parte::VariablesGlobales:
        case Parte::OrigenVariables:
        case Parte::OrigenForms:
        case Parte::OrigenSource: return true;
        case Parte::Archivo: return lugar.columna == 3;
        case Parte::Condiciones:
        case Parte::BAPIs: return lugar.columna == 1;
        default: return false;
    }
}

// Decides what a fault of the report means for the specification.
class Diagnostico {
public:
    Diagnostico(const Generacion& g, const LineasDelReporte& reporte) : g_(g), reporte_(reporte) {}

    Veredicto De(const Falta& falta) const {
        const Lugar lugar = reporte_.LugarDe(falta.linea);
        // A statement of the user's that runs on into the lines behind it.
        const Lugar inicio = reporte_.LugarDe(falta.sentencia);
        if (falta.sentencia > 0 && EsTextoDelUsuario(inicio) && !EsTextoDelUsuario(lugar)) return {codigoSinRegla, inicio};
        if (falta.clase == Clase::NombreSinDeclarar) {
            if (const auto veredicto = DeNombreSinPrefijo(falta.nombre, lugar)) return *veredicto;
        }
        if (falta.clase == Clase::NombreRepetido || falta.clase == Clase::ComponenteRepetido ||
            falta.clase == Clase::FormaRepetida) {
            return DeRepeticion(falta, lugar);
        }
        if (falta.clase == Clase::NombreLargo) return DeNombreLargo(lugar);
        if (falta.clase == Clase::NombreInvalido && !EsTextoDelUsuario(lugar)) {
            if (const auto veredicto = DePrefijo(falta.nombre)) return *veredicto;
        }
        if (falta.clase == Clase::BloqueAbierto && !EsTextoDelUsuario(lugar)) {
            if (const auto veredicto = DeBloqueDelUsuario(falta)) return *veredicto;
        }
        if (EsTextoDelUsuario(lugar)) return {CodigoEnTexto(falta.clase), lugar};
        switch (lugar.parte) {
            case Parte::Programa: return lugar.columna == 4 ? DeCabezaDeGrupo(falta, lugar) : DeFila(falta, lugar);
            case Parte::Archivo: return DeCampo(falta, lugar);
            case Parte::Condiciones: return {falta.clase == Clase::LiteralAbierto ? 328 : codigoSinRegla, lugar};
            case Parte::Opcion: return {falta.clase == Clase::LiteralAbierto ? 312 : codigoSinRegla, lugar};
            case Parte::Preferencia: return {310, lugar};
            default: return {codigoSinRegla, lugar};
        }
    }

private:
    // Under naming conventions some lines name objects without their prefix, or with that of another kind.
    std::optional<Veredicto> DeNombreSinPrefijo(std::string_view nombre, const Lugar& lugar) const {
        const auto& n = g_.nombres;
        const auto es = [&](const std::string& prefijo, std::string_view raiz) {
            return IgualesSinCaja(nombre, prefijo + std::string(raiz));
        };
        if (lugar.parte == Parte::Programa && (es("", "RESULT") || es(n.GSprefijo, "RESULT") || es(n.LSprefijo, "RESULT"))) {
            const bool cabeza = lugar.columna == 1;
            return Veredicto{303, Lugar::EnPrograma(lugar.fila, cabeza ? 1 : 2)};
        }
        if (es("", "DATAERRORS") || es(n.GSprefijo, "ITAB") || es(n.GSprefijo, "ITABOPERS") || es(n.GTprefijo, "DATAERRORSFOUND")) {
            if (!EsTextoDelUsuario(lugar)) return Veredicto{301, Lugar::EnOpcion("ErrorHandlingCheck")};
        }
        const bool deIds = lugar == Lugar::EnOpcion("Identificadores");
        if (deIds && Mayusculas(nombre).starts_with("ITABSL_")) {
            return Veredicto{325, Lugar::EnPreferencia("CheckActivateNamingConventions")};
        }
        const std::string& step = g_.valores.VariableArchivoStep;
        const bool deArchivo = g_.EntradaDeArchivo() && !step.empty();
        if (deArchivo && lugar.parte == Parte::Programa && lugar.columna == 4 && Mayusculas(nombre).starts_with(Mayusculas(step))) {
            return Veredicto{302, lugar};
        }
        return std::nullopt;
    }

    // A prefix of the settings that makes no name.
    std::optional<Veredicto> DePrefijo(std::string_view nombre) const {
        const auto& n = g_.nombres;
        const std::pair<std::string_view, const char*> prefijos[] = {
            {n.GSprefijo, "GSprefijo"}, {n.GNprefijo, "GNprefijo"}, {n.GTprefijo, "GTprefijo"},
            {n.LSprefijo, "LSprefijo"}, {n.LNprefijo, "LNprefijo"}, {n.LTprefijo, "LTprefijo"},
            {n.GCprefijo, "GCprefijo"}, {n.PSprefijo, "PSprefijo"}, {n.PNprefijo, "PNprefijo"}};
        constexpr std::string_view cifras = "0123456789";
        for (const auto& [prefijo, opcion] : prefijos) {
            if (prefijo.empty() || !Mayusculas(nombre).starts_with(Mayusculas(prefijo))) continue;
            const bool malo = std::any_of(prefijo.begin(), prefijo.end(), [&](char c) {
                const bool letra =
                    Mayuscula(static_cast<unsigned char>(c)) >= 'A' && Mayuscula(static_cast<unsigned char>(c)) <= 'Z';
                return !letra && c != '_' && cifras.find(c) == std::string_view::npos;
            });
            if (malo || cifras.find(prefijo.front()) != std::string_view::npos) {
                return Veredicto{codigoSinRegla, Lugar::EnPreferencia(opcion)};
            }
        }
        return std::nullopt;
    }

    // A form or an event that begins or ends in the user's code breaks the one around it.
    std::optional<Veredicto> DeBloqueDelUsuario(const Falta& falta) const {
        const Lugar otro = reporte_.LugarDe(falta.otraLinea);
        if (falta.otraLinea > 0 && EsTextoDelUsuario(otro)) return Veredicto{codigoSinRegla, otro};
        // Of an open form the fault is told at its begin, else at the end that is too much.
        const int paso = Mayusculas(falta.nombre) == "FORM" ? 1 : -1;
        for (int linea = falta.linea; linea >= 1 && linea <= reporte_.Cantidad(); linea += paso) {
            const Lugar lugar = reporte_.LugarDe(linea);
            if (!EsTextoDelUsuario(lugar) || lugar.parte == Parte::OrigenForms) continue;
            const std::string texto = Mayusculas(Recortar(reporte_.Texto(linea)));
            for (const std::string_view verbo :
                 {"FORM ", "ENDFORM", "START-OF-SELECTION", "END-OF-SELECTION", "INITIALIZATION", "AT "}) {
                if (texto.starts_with(verbo)) return Veredicto{codigoSinRegla, lugar};
            }
        }
        return std::nullopt;
    }

    // The user's own one of the two.
    Veredicto DeRepeticion(const Falta& falta, const Lugar& lugar) const {
        if (EsTextoDelUsuario(lugar)) return {320, lugar};
        const Lugar otro = reporte_.LugarDe(falta.otraLinea);
        if (EsTextoDelUsuario(otro)) return {320, otro};
        if (falta.clase == Clase::ComponenteRepetido && lugar.parte == Parte::Archivo) return {327, lugar};
        return {codigoSinRegla, lugar};
    }

    Veredicto DeNombreLargo(const Lugar& lugar) const {
        if (EsTextoDelUsuario(lugar)) return {311, lugar};
        if (lugar.parte == Parte::Archivo) return {314, lugar};
        if (lugar.parte == Parte::Programa && lugar.columna == 1) return {306, lugar};
        return {311, Lugar::EnPreferencia("PSprefijo")};
    }

    static int CodigoEnTexto(Clase clase) {
        switch (clase) {
            case Clase::NombreSinDeclarar:
            case Clase::FormaSinDefinir: return 318;
            case Clase::ComponenteAjeno: return 315;
            case Clase::FueraDelCampo: return 317;
            default: return codigoSinRegla;
        }
    }

    // The head of a step-loop: its clauses, its rows per screen.
    Veredicto DeCabezaDeGrupo(const Falta& falta, const Lugar& lugar) const {
        const auto& fila = g_.especificacion.TablaTransaccion[lugar.fila];
        const auto filasPorPantalla = Recortar(ValorDeMarca(fila.nota, 6));
        switch (falta.clase) {
            case Clase::ComponenteAjeno: return {315, lugar};
            case Clase::SQLNativo: return {316, lugar};
            case Clase::LiteralAbierto: return {312, lugar};
            case Clase::OperandoAusente: return {Contiene(reporte_.Texto(falta.linea), "ROWSPERSCREEN") ? 313 : 316, lugar};
            case Clase::NombreSinDeclarar:
            case Clase::NombreInvalido: return {falta.nombre == filasPorPantalla ? 313 : codigoSinRegla, lugar};
            default: return {codigoSinRegla, lugar};
        }
    }

    Veredicto DeFila(const Falta& falta, const Lugar& lugar) const {
        const auto& fila = g_.especificacion.TablaTransaccion[lugar.fila];
        const auto en = [&](int columna) { return Lugar::EnPrograma(lugar.fila, columna); };
        if (falta.clase == Clase::LiteralAbierto) {
            for (const int columna : {0, 1, 2}) {
                if (Contiene(fila.*columnasDeTransaccion[static_cast<std::size_t>(columna)], "'")) return {328, en(columna)};
            }
            return {328, lugar};
        }
        if (falta.clase == Clase::ComponenteAjeno) return {315, en(3)};
        if (lugar.columna == 1) return {codigoSinRegla, lugar};
        if (Contiene(fila.campo, "(+")) return {321, en(2)};
        const bool sinCadena = EsDeBAPI(lugar.fila) && (EsConstante(fila.valor) || EsVariable(fila.valor));
        if (sinCadena && (falta.clase == Clase::NoEsSentencia || falta.clase == Clase::PalabrasDeMas)) {
            return Contiene(fila.campo, ";") ? Veredicto{305, en(2)} : Veredicto{304, en(3)};
        }
        return {codigoSinRegla, lugar};
    }

    bool EsDeBAPI(int fila) const {
        const auto& tabla = g_.especificacion.TablaTransaccion;
        while (fila > 0 && !tabla[fila].EsCabezaBAPI() && !tabla[fila].EsCabezaTransaccion()) --fila;
        return tabla[fila].EsCabezaBAPI();
    }

    Veredicto DeCampo(const Falta& falta, const Lugar& lugar) const {
        switch (falta.clase) {
            case Clase::LargoInvalido: return {326, Lugar::EnArchivo(lugar.fila, 1)};
            case Clase::SQLNativo: return {316, PrimeraCabeza(lugar)};
            case Clase::ComponenteAjeno: return {315, lugar};
            default: return {314, Lugar::EnArchivo(lugar.fila, 0)};
        }
    }

    // A wrong number of commas in the reading of the main table is a step-loop's doing.
    Lugar PrimeraCabeza(const Lugar& lugar) const {
        const auto cabezas = CabezasStepLoop(g_.especificacion);
        return cabezas.empty() ? lugar : Lugar::EnPrograma(cabezas.front(), 4);
    }

    const Generacion& g_;
    const LineasDelReporte& reporte_;
};

}  // namespace

Veredicto Diagnosticar(const Falta& falta, const Generacion& g, const LineasDelReporte& reporte) {
    return Diagnostico(g, reporte).De(falta);
}

}  // namespace qor
