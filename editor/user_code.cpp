#include "editor/user_code.h"

#include <algorithm>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "editor/grids.h"
#include "model/cells.h"
#include "model/operations.h"

namespace qor {

namespace {

constexpr std::size_t largoDeNombreEnComentario = 68;
constexpr int anchoDeCodigo = 80;

bool AbreFormula(std::string_view linea) { return linea.size() >= 2 && linea.front() == '[' && linea.back() == ']'; }

bool SoloBlancos(std::string_view texto) {
    const auto lineas = PartirLineas(texto, anchoDeCodigo);
    return std::all_of(lineas.begin(), lineas.end(), [](const std::string& linea) { return EstaEnBlanco(linea); });
}

}  // namespace

std::vector<Formula> LeerFormulas(std::string_view texto) {
    std::vector<Formula> formulas;
    for (const auto linea : PartirEnLineas(texto)) {
        if (AbreFormula(linea)) {
            if (formulas.size() == maximoDeFormulas) break;
            formulas.push_back({std::string(Recortar(linea.substr(1, linea.size() - 2))), {}});
        } else if (!formulas.empty()) {
            formulas.back().cuerpo.append(linea).append("\r\n");
        }
    }
    return formulas;
}

DialogoDeCodigo AbrirCodigo(Ventana& ventana, int fila, const std::filesystem::path& directorioDeDatos) {
    const auto& celdas = ventana.documento.especificacion.TablaArchivo[fila];
    DialogoDeCodigo dialogo{fila, ventana.textos.Texto(104) + " " + celdas.campo, celdas.conversion, {}};
    try {
        dialogo.formulas = LeerFormulas(LeerArchivo(directorioDeDatos / nombreDeFormulas));
    } catch (const FalloDeEjecucion& fallo) {
        ventana.vista.Advertir(ConDetalle(Componer(ventana.textos, {356, " FORMULAS.TXT"}), fallo));
    }
    return dialogo;
}

void AplicarFormula(Ventana& ventana, DialogoDeCodigo& dialogo, int seleccion) {
    if (seleccion < 0) return;
    const std::string campo(Recortar(ventana.documento.especificacion.TablaArchivo[dialogo.fila].campo));
    if (ActualizarOperaciones(ventana.documento.especificacion, 0).OperacionDeCampo(campo) != 0) {
        return ventana.vista.Advertir(Componer(ventana.textos, {355}));
    }
    const Formula& formula = dialogo.formulas[static_cast<std::size_t>(seleccion)];
    dialogo.ABAPText.insert(
        0, "* " + formula.nombre.substr(0, largoDeNombreEnComentario) + "\r\n" + CuerpoParaCampo(formula.cuerpo, campo));
}

bool CerrarCodigo(Ventana& ventana, const DialogoDeCodigo& dialogo) {
    std::string& celda = ventana.documento.especificacion.TablaArchivo[dialogo.fila].conversion;
    if (celda == dialogo.ABAPText) return true;
    try {
        celda = SoloBlancos(dialogo.ABAPText) ? std::string() : dialogo.ABAPText;
    } catch (const FalloDeEjecucion&) {
        ventana.vista.Advertir(MensajeLiteral("The code has more than 501 lines. Please shorten it."));
        return false;
    }
    ventana.documento.Cambiar();
    ColorearFila(ventana, {Tabla::Archivo, dialogo.fila});
    return true;
}

std::string CuerpoParaCampo(std::string_view texto, std::string_view campo) {
    return ReemplazarTodo(texto, "!", "#" + std::string(campo));
}

}  // namespace qor
