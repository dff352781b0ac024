#include "generator/checks.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "base/text.h"
#include "model/cells.h"
#include "model/declarations.h"
#include "model/one_file.h"

namespace qor {

namespace {

bool Rechazar(const Chequeo& c, std::initializer_list<Pieza> piezas) {
    c.vista.Advertir(Componer(c.textos, piezas));
    return false;
}

bool ChequearRegistroDeCampos(const Chequeo& c) {
    const auto& tabla = c.especificacion.TablaTransaccion;
    const int filas = c.especificacion.FilasTransaccion();
    struct Grupos {
        int primero;
        bool distintos = false;
    };
    std::unordered_map<std::string_view, Grupos> grupos;
    for (int r = 0; r < filas; ++r) {
        const int grupo = c.analisis.operaciones.OperacionFila(r);
        const auto [lugar, nuevo] = grupos.try_emplace(Recortar(tabla[r].valor), Grupos{grupo});
        if (!nuevo && lugar->second.primero != grupo) lugar->second.distintos = true;
    }
    const int campos = c.especificacion.FilasArchivo();
    for (int f = 0; f < campos; ++f) {
        const std::string& campo = c.especificacion.TablaArchivo[f].campo;
        const auto lugar = grupos.find(campo);
        if (lugar != grupos.end() && lugar->second.distintos) return Rechazar(c, {367, " ", campo, "."});
    }
    return true;
}

bool ChequearCondicion(const Chequeo& c, const std::unordered_set<std::string_view>& condiciones, std::string_view celda,
                       int mensajeSinNombre) {
    const auto nombre = DespuesDe(celda, ';');
    if (nombre.empty()) return Rechazar(c, {mensajeSinNombre, " ", AntesDe(celda, ';'), "."});
    if (!condiciones.contains(nombre)) return Rechazar(c, {369, " ", nombre, " ", 370});
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
        if (Contiene(fila.dynpro, ";")) bien = ChequearCondicion(c, condiciones, fila.dynpro, 368);
        // The test of column 2 starts anew: a valid condition there cancels the failure of column 1.
        if (Contiene(fila.campo, ";")) bien = ChequearCondicion(c, condiciones, fila.campo, 371);
        if (!bien) return false;
    }
    return true;
}

bool RechazarValor(const Chequeo& c, int fila, std::initializer_list<Pieza> piezas, Icono icono = Icono::Advertencia) {
    c.vista.MostrarFila(Tabla::Transaccion, fila);
    c.vista.Enfocar("Text5_0");
    c.vista.Mostrar(Componer(c.textos, piezas), icono);
    return false;
}

bool ChequearVariable(const Chequeo& c, int fila, std::string_view celda) {
    const auto nombre = AntesDe(celda.substr(1), '-');
    if (Menciona(c.especificacion.VariablesGlobales, nombre)) return true;
    return RechazarValor(c, fila, {312, " ", Tramo(celda, 2, 8), " ", 313}, Icono::Informacion);
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
    if (EstaEnBlanco(texto)) return false;
    const auto rechazar = [&](std::initializer_list<Pieza> piezas) {
        c.vista.Enfocar("Identificadores");
        return Rechazar(c, piezas);
    };
    const int cantidad = 1 + static_cast<int>(std::count(texto.begin(), texto.end(), ','));
    const auto largo = static_cast<std::size_t>(c.analisis.LargoIdentificador);
    for (int n = 1; n < cantidad; ++n) {
        if (ObtenerIdentificador(texto, n).size() != largo) return rechazar({380});
    }
    const int esperados = ContarStepLoops(c.especificacion) + 1;
    if (cantidad != esperados) return rechazar({381, " ", std::to_string(esperados)});
    return true;
}

bool ExistenStepsInvalidos(const Chequeo& c) {
    if (!c.analisis.HayStepSinClave) return false;
    if (!StepsSinArchivo(c.especificacion, c.opciones)) return !Rechazar(c, {378, "\r\r", 375, "\r\r", 376, "\r\r", 377});
    if (c.analisis.ClavesMezcladas) return !Rechazar(c, {379});
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
        c.vista.MostrarFila(Tabla::Transaccion, r);
        return !Rechazar(c, {386, ": ", Recortar(fila.campo)});
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
            const auto interior = Tramo(celda, 2, static_cast<std::ptrdiff_t>(celda.size()) - 2);
            if (Contiene(interior, "'")) return RechazarValor(c, r, {310, " ", celda, " ", 311});
        } else if (!campos.contains(celda)) {
            return RechazarValor(c, r, {308, " '", celda, "' ", 309});
        }
    }
    return true;
}

}  // namespace qor
