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

VentanaDeCodigo AbrirCodigo(Editor& editor, int fila, const std::filesystem::path& directorioDeDatos) {
    const auto& celdas = editor.especificacion.TablaArchivo[fila];
    VentanaDeCodigo ventana{fila, editor.textos.Texto(104) + " " + celdas.campo, celdas.conversion, {}};
    try {
        ventana.formulas = LeerFormulas(LeerArchivo(directorioDeDatos / nombreDeFormulas));
    } catch (const FalloDeEjecucion&) {
        editor.vista.Advertir(Componer(editor.textos, {356, " FORMULAS.TXT"}));
    }
    return ventana;
}

void AplicarFormula(Editor& editor, VentanaDeCodigo& ventana, int seleccion) {
    if (seleccion < 0) return;
    const std::string campo(Recortar(editor.especificacion.TablaArchivo[ventana.fila].campo));
    if (ActualizarOperaciones(editor.especificacion, 0).OperacionDeCampo(campo) != 0) {
        return editor.vista.Advertir(Componer(editor.textos, {355}));
    }
    const Formula& formula = ventana.formulas[static_cast<std::size_t>(seleccion)];
    ventana.ABAPText.insert(
        0, "* " + formula.nombre.substr(0, largoDeNombreEnComentario) + "\r\n" + ConvertirTexto(formula.cuerpo, campo));
}

bool CerrarCodigo(Editor& editor, const VentanaDeCodigo& ventana) {
    std::string& celda = editor.especificacion.TablaArchivo[ventana.fila].conversion;
    if (celda == ventana.ABAPText) return true;
    try {
        celda = SoloBlancos(ventana.ABAPText) ? std::string() : ventana.ABAPText;
    } catch (const FalloDeEjecucion&) {
        editor.vista.Advertir(MensajeLiteral("The code has more than 501 lines. Please shorten it."));
        return false;
    }
    editor.HayCambios = true;
    ColorearFila(editor, {Tabla::Archivo, ventana.fila});
    return true;
}

std::string ConvertirTexto(std::string_view texto, std::string_view campo) {
    return ReemplazarTodo(texto, "!", "#" + std::string(campo));
}

}  // namespace qor
