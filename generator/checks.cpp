#include "generator/checks.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "base/text.h"
#include "model/cells.h"
#include "model/declarations.h"

namespace qor {

namespace {

bool Rechazar(const Generacion& g, std::initializer_list<Pieza> piezas) {
    g.vista.Advertir(Componer(g.textos, piezas));
    return false;
}

bool ChequearRegistroDeCampos(const Generacion& g) {
    const auto& tabla = g.especificacion.TablaTransaccion;
    const int filas = g.especificacion.FilasTransaccion();
    struct Grupos {
        int primero;
        bool distintos = false;
    };
    std::unordered_map<std::string_view, Grupos> grupos;
    for (int r = 0; r < filas; ++r) {
        const int grupo = g.operaciones.OperacionFila(r);
        const auto [lugar, nuevo] = grupos.try_emplace(Recortar(tabla[r].valor), Grupos{grupo});
        if (!nuevo && lugar->second.primero != grupo) lugar->second.distintos = true;
    }
    const int campos = g.especificacion.FilasArchivo();
    for (int f = 0; f < campos; ++f) {
        const std::string& campo = g.especificacion.TablaArchivo[f].campo;
        const auto lugar = grupos.find(campo);
        if (lugar != grupos.end() && lugar->second.distintos) return Rechazar(g, {367, " ", campo, "."});
    }
    return true;
}

bool ChequearCondicion(const Generacion& g, const std::unordered_set<std::string_view>& condiciones, std::string_view celda,
                       int mensajeSinNombre) {
    const auto nombre = DespuesDe(celda, ';');
    if (nombre.empty()) return Rechazar(g, {mensajeSinNombre, " ", AntesDe(celda, ';'), "."});
    if (!condiciones.contains(nombre)) return Rechazar(g, {369, " ", nombre, " ", 370});
    return true;
}

bool ChequearCondiciones(const Generacion& g) {
    std::unordered_set<std::string_view> condiciones;
    for (const auto& fila : g.especificacion.TablaCondiciones) {
        if (fila.nombre.empty()) break;
        condiciones.insert(fila.nombre);
    }
    const int filas = g.especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const auto& fila = g.especificacion.TablaTransaccion[r];
        bool bien = true;
        if (Contiene(fila.dynpro, ";")) bien = ChequearCondicion(g, condiciones, fila.dynpro, 368);
        // The test of column 2 starts anew: a valid condition there cancels the failure of column 1.
        if (Contiene(fila.campo, ";")) bien = ChequearCondicion(g, condiciones, fila.campo, 371);
        if (!bien) return false;
    }
    return true;
}

bool RechazarValor(const Generacion& g, int fila, std::initializer_list<Pieza> piezas, Icono icono = Icono::Advertencia) {
    g.vista.MostrarFila(Tabla::Transaccion, fila);
    g.vista.Enfocar("Text5_0");
    g.vista.Mostrar(Componer(g.textos, piezas), icono);
    return false;
}

bool ChequearVariable(const Generacion& g, int fila, std::string_view celda) {
    const auto nombre = AntesDe(celda.substr(1), '-');
    if (Menciona(g.especificacion.VariablesGlobales, nombre)) return true;
    return RechazarValor(g, fila, {312, " ", Tramo(celda, 2, 8), " ", 313}, Icono::Informacion);
}

}  // namespace

bool FaltaAnchoCampos(const Especificacion& especificacion) {
    const int filas = especificacion.FilasArchivo();
    for (int f = 0; f < filas; ++f) {
        if (especificacion.TablaArchivo[f].ancho.empty()) return true;
    }
    return false;
}

bool CalcularArchivoUnico(const Especificacion& especificacion, const Opciones& opciones, const Operaciones& operaciones) {
    const bool archivoPlano = (opciones.ClienteOp && opciones.AnchoFijo) || (opciones.ServidorOp() && opciones.TablaCh == 0);
    return opciones.OneFileOption() && archivoPlano && operaciones.ContarFilasOperacion(1) > 0 && !especificacion.OrigenUsuario;
}

std::string_view ObtenerIdentificador(std::string_view identificadores, int n) {
    for (; n > 0; --n) {
        const auto coma = identificadores.find(',');
        if (coma == std::string_view::npos) return {};
        identificadores.remove_prefix(coma + 1);
    }
    return AntesDe(identificadores, ',');
}

bool ChequearIdentificadores(Generacion& g) {
    const std::string& texto = g.opciones.Identificadores;
    if (EstaEnBlanco(texto)) return false;
    const auto rechazar = [&](std::initializer_list<Pieza> piezas) {
        g.vista.Enfocar("Identificadores");
        return Rechazar(g, piezas);
    };
    const int cantidad = 1 + static_cast<int>(std::count(texto.begin(), texto.end(), ','));
    const auto largo = ObtenerIdentificador(texto, 0).size();
    for (int n = 1; n < cantidad; ++n) {
        if (ObtenerIdentificador(texto, n).size() != largo) return rechazar({380});
    }
    const int esperados = ContarStepLoops(g.especificacion) + 1;
    if (cantidad != esperados) return rechazar({381, " ", std::to_string(esperados)});
    g.valores.LargoIdentificador = static_cast<int>(largo);
    return true;
}

bool ExistenStepsInvalidos(Generacion& g) {
    bool mezcla = false;
    enum class Paso { Ninguno, SinClave, ConClave };
    Paso anterior = Paso::Ninguno;
    g.valores.HayStepSinClave = false;
    for (const int r : CabezasStepLoop(g.especificacion)) {
        const auto claves = ValorDeMarca(g.especificacion.TablaTransaccion[r].nota, 7);
        const Paso paso = EstaEnBlanco(claves) ? Paso::SinClave : Paso::ConClave;
        if (anterior != Paso::Ninguno && anterior != paso) mezcla = true;
        if (paso == Paso::SinClave) g.valores.HayStepSinClave = true;
        anterior = paso;
    }
    if (!g.valores.HayStepSinClave) return false;
    const auto& o = g.opciones;
    const bool sinArchivoUnico = (o.TablaCh == 1 || o.ClienteOp) && (o.DelimTab() || o.ServidorOp());
    if (sinArchivoUnico || g.especificacion.OrigenUsuario || !o.OneFileOption()) {
        return !Rechazar(g, {378, "\r\r", 375, "\r\r", 376, "\r\r", 377});
    }
    if (mezcla) return !Rechazar(g, {379});
    return false;
}

bool ExistenCamposNoDefinidos(const Generacion& g) {
    bool esBAPI = false;
    const int filas = g.especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const auto& fila = g.especificacion.TablaTransaccion[r];
        if (!fila.programa.empty()) {
            esBAPI = fila.programa == "BAPI";
            continue;
        }
        if (!esBAPI) continue;
        const auto nombre = AntesDe(Recortar(AntesDe(fila.campo, '-')), ';');
        if (EstaDeclarado(g.especificacion.VariablesGlobales, nombre)) continue;
        g.vista.MostrarFila(Tabla::Transaccion, r);
        return !Rechazar(g, {386, ": ", Recortar(fila.campo)});
    }
    return false;
}

bool ChequearArchivosCampos(const Generacion& g) { return ChequearRegistroDeCampos(g) && ChequearCondiciones(g); }

void ChequearConversiones(Generacion& g) {
    g.valores.HayConversiones = g.valores.HayConversionesStep = false;
    for (int f = 0; f <= ultimaFila; ++f) {
        const auto& fila = g.especificacion.TablaArchivo[f];
        if (TienePares(fila.conversion)) {
            const bool principal = g.operaciones.OperacionDeCampo(Recortar(fila.campo)) == 0;
            (principal ? g.valores.HayConversiones : g.valores.HayConversionesStep) = true;
        } else if (!EstaEnBlanco(fila.conversion)) {
            g.valores.HayConversiones = true;
        }
    }
}

bool ChequearValores(const Generacion& g) {
    std::unordered_set<std::string_view> campos;
    for (int f = 0; f <= ultimaFila; ++f) campos.insert(g.especificacion.TablaArchivo[f].campo);
    for (int r = 0; r <= ultimaFila; ++r) {
        const std::string& celda = g.especificacion.TablaTransaccion[r].valor;
        if (EstaEnBlanco(celda)) continue;
        if (EsVariable(celda)) {
            if (!ChequearVariable(g, r, celda)) return false;
        } else if (EsConstante(celda)) {
            const auto interior = Tramo(celda, 2, static_cast<std::ptrdiff_t>(celda.size()) - 2);
            if (Contiene(interior, "'")) return RechazarValor(g, r, {310, " ", celda, " ", 311});
        } else if (!campos.contains(celda)) {
            return RechazarValor(g, r, {308, " '", celda, "' ", 309});
        }
    }
    return true;
}

}  // namespace qor
