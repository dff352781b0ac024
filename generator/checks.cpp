#include "generator/checks.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/text.h"
#include "model/cells.h"
#include "model/declarations.h"
#include "model/one_file.h"

namespace qor {

namespace {

// Tells what is wrong; true when the run may go on all the same.
bool Rechazar(const Chequeo& c, const Lugar& lugar, std::initializer_list<Pieza> piezas) {
    c.oyente.Recibir({Componer(c.textos, piezas), lugar});
    return c.oyente.Sigue();
}

bool ChequearRegistroDeCampos(const Chequeo& c) {
    const auto& tabla = c.especificacion.TablaTransaccion;
    const int filas = c.especificacion.FilasTransaccion();
    struct Grupos {
        int primero;
        std::vector<int> filasDeOtros = {};
    };
    std::unordered_map<std::string_view, Grupos> grupos;
    for (int r = 0; r < filas; ++r) {
        const int grupo = c.analisis.operaciones.OperacionFila(r);
        const auto [lugar, nuevo] = grupos.try_emplace(Recortar(tabla[r].valor), Grupos{grupo});
        if (!nuevo && lugar->second.primero != grupo) lugar->second.filasDeOtros.push_back(r);
    }
    const int campos = c.especificacion.FilasArchivo();
    for (int f = 0; f < campos; ++f) {
        const std::string& campo = c.especificacion.TablaArchivo[f].campo;
        const auto lugar = grupos.find(campo);
        if (lugar == grupos.end()) continue;
        for (const int r : lugar->second.filasDeOtros) {
            if (!Rechazar(c, Lugar::EnPrograma(r, 3), {367, " ", campo, "."})) return false;
        }
    }
    return true;
}

bool ChequearCondicion(const Chequeo& c, const std::unordered_set<std::string_view>& condiciones, const Lugar& lugar,
                       std::string_view celda, int mensajeSinNombre) {
    const auto nombre = DespuesDe(celda, ';');
    if (nombre.empty()) return Rechazar(c, lugar, {mensajeSinNombre, " ", AntesDe(celda, ';'), "."});
    if (!condiciones.contains(nombre)) return Rechazar(c, lugar, {369, " ", nombre, " ", 370});
    return true;
}

bool ChequearCondiciones(const Chequeo& c) {
    std::unordered_set<std::string_view> condiciones;
    for (const auto& fila : c.especificacion.TablaCondiciones) {
        if (fila.nombre.empty()) break;
        condiciones.insert(fila.nombre);
    }
    const int filas = c.especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const auto& fila = c.especificacion.TablaTransaccion[r];
        bool bien = true;
        if (Contiene(fila.dynpro, ";")) bien = ChequearCondicion(c, condiciones, Lugar::EnPrograma(r, 1), fila.dynpro, 368);
        // The test of column 2 starts anew: a valid condition there cancels the failure of column 1.
        if (Contiene(fila.campo, ";")) bien = ChequearCondicion(c, condiciones, Lugar::EnPrograma(r, 2), fila.campo, 371);
        if (!bien) return false;
    }
    return true;
}

bool RechazarValor(const Chequeo& c, int fila, std::initializer_list<Pieza> piezas, Icono icono = Icono::Advertencia) {
    c.oyente.Recibir({Componer(c.textos, piezas), Lugar::EnPrograma(fila, 3), icono, true, "Text5_0"});
    return c.oyente.Sigue();
}

bool ChequearVariable(const Chequeo& c, int fila, std::string_view celda) {
    const auto nombre = AntesDe(celda.substr(1), '-');
    if (Menciona(c.especificacion.VariablesGlobales, nombre)) return true;
    return RechazarValor(c, fila, {312, " ", Tramo(celda, 2, 8), " ", 313}, Icono::Informacion);
}

bool ChequearConstante(const Chequeo& c, int fila, std::string_view celda) {
    // One apostrophe alone has an inside of negative length.
    if (celda.size() < 2 && c.oyente.Sigue()) return RechazarValor(c, fila, {326});
    const auto interior = Tramo(celda, 2, static_cast<std::ptrdiff_t>(celda.size()) - 2);
    return !Contiene(interior, "'") || RechazarValor(c, fila, {310, " ", celda, " ", 311});
}

}  // namespace

bool FaltaAnchoCampos(const Especificacion& especificacion) {
    const int filas = especificacion.FilasArchivo();
    for (int f = 0; f < filas; ++f) {
        if (especificacion.TablaArchivo[f].ancho.empty()) return true;
    }
    return false;
}

bool ChequearIdentificadores(const Chequeo& c) {
    const std::string& texto = c.opciones.Identificadores;
    const Lugar lugar = Lugar::EnOpcion("Identificadores");
    if (EstaEnBlanco(texto)) {
        // Nothing is shown; who wants to know of everything hears of it.
        if (c.oyente.Sigue()) c.oyente.Recibir({{}, lugar});
        return c.oyente.Sigue();
    }
    const auto rechazar = [&](std::initializer_list<Pieza> piezas) {
        c.oyente.Recibir({Componer(c.textos, piezas), lugar, Icono::Advertencia, false, "Identificadores"});
        return c.oyente.Sigue();
    };
    const int cantidad = 1 + static_cast<int>(std::count(texto.begin(), texto.end(), ','));
    const auto largo = static_cast<std::size_t>(c.analisis.LargoIdentificador);
    for (int n = 1; n < cantidad; ++n) {
        if (ObtenerIdentificador(texto, n).size() == largo) continue;
        if (!rechazar({380})) return false;
        break;
    }
    const int esperados = ContarStepLoops(c.especificacion) + 1;
    return cantidad == esperados || rechazar({381, " ", std::to_string(esperados)});
}

bool ExistenStepsInvalidos(const Chequeo& c) {
    if (!c.analisis.HayStepSinClave) return false;
    const bool sinArchivo = StepsSinArchivo(c.especificacion, c.opciones);
    if (sinArchivo && !c.analisis.ClavesMezcladas) return false;
    for (const int r : CabezasStepLoop(c.especificacion)) {
        if (!EstaEnBlanco(ValorDeMarca(c.especificacion.TablaTransaccion[r].nota, 7))) continue;
        const Lugar lugar = Lugar::EnPrograma(r, 4);
        const bool sigue =
            sinArchivo ? Rechazar(c, lugar, {379}) : Rechazar(c, lugar, {378, "\r\r", 375, "\r\r", 376, "\r\r", 377});
        if (!sigue) return true;
    }
    return false;
}

bool ExistenCamposNoDefinidos(const Chequeo& c) {
    bool esBAPI = false;
    const int filas = c.especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const auto& fila = c.especificacion.TablaTransaccion[r];
        if (!fila.programa.empty()) {
            esBAPI = fila.programa == "BAPI";
            continue;
        }
        if (!esBAPI) continue;
        const auto nombre = AntesDe(Recortar(AntesDe(fila.campo, '-')), ';');
        if (EstaDeclarado(c.especificacion.VariablesGlobales, nombre)) continue;
        c.oyente.Recibir(
            {Componer(c.textos, {386, ": ", Recortar(fila.campo)}), Lugar::EnPrograma(r, 2), Icono::Advertencia, true});
        if (!c.oyente.Sigue()) return true;
    }
    return false;
}

bool ChequearArchivosCampos(const Chequeo& c) { return ChequearRegistroDeCampos(c) && ChequearCondiciones(c); }

bool ChequearValores(const Chequeo& c) {
    std::unordered_set<std::string_view> campos;
    for (int f = 0; f <= ultimaFila; ++f) campos.insert(c.especificacion.TablaArchivo[f].campo);
    for (int r = 0; r <= ultimaFila; ++r) {
        const std::string& celda = c.especificacion.TablaTransaccion[r].valor;
        if (EstaEnBlanco(celda)) continue;
        if (EsVariable(celda)) {
            if (!ChequearVariable(c, r, celda)) return false;
        } else if (EsConstante(celda)) {
            if (!ChequearConstante(c, r, celda)) return false;
        } else if (!campos.contains(celda)) {
            if (!RechazarValor(c, r, {308, " '", celda, "' ", 309})) return false;
        }
    }
    return true;
}

}  // namespace qor
