// Any bytes as a file of formulas and, behind bytes FF, as the name of a field and its code: the formulas are read, put into the
// code one upon the other, and the code is stored.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/files.h"
#include "base/text.h"
#include "editor/user_code.h"
#include "fuzz/cleared_specification.h"
#include "fuzz/indifferent_view.h"
#include "fuzz/require.h"

namespace {

using namespace qor;

constexpr std::size_t formulasPuestas = 4;

void ExigirFormulas(std::string_view texto, const std::vector<Formula>& formulas) {
    Exigir(formulas.size() <= maximoDeFormulas, "formulas beyond the limit are dropped");
    std::size_t lineas = formulas.size();
    for (const auto& formula : formulas) {
        Exigir(formula.nombre.find_first_of("\r\n") == std::string::npos, "a name is one line");
        Exigir(formula.cuerpo.empty() || formula.cuerpo.ends_with("\r\n"), "a body is whole lines");
        lineas += PartirEnLineas(formula.cuerpo).size();
    }
    Exigir(lineas <= PartirEnLineas(texto).size(), "every line belongs to one formula");
}

// The comment and the body stand in front of what was there, line by line.
void ExigirCodigo(const std::string& codigo, const std::string& antes, const Formula& formula, std::string_view campo) {
    Exigir(codigo.starts_with("* ") && codigo.ends_with(antes), "a formula goes in front of the code, below a comment");
    const auto nuevas = PartirEnLineas(std::string_view(codigo).substr(0, codigo.size() - antes.size()));
    const auto cuerpo = PartirEnLineas(formula.cuerpo);
    Exigir(nuevas.size() == cuerpo.size() + 1, "a formula keeps its lines");
    for (std::size_t i = 0; i < cuerpo.size(); ++i) {
        Exigir(nuevas[i + 1] == CuerpoParaCampo(cuerpo[i], campo), "each line is for the field");
        if (!Contiene(campo, "!")) Exigir(!Contiene(nuevas[i + 1], "!"), "no place for the field is left");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view entrada(reinterpret_cast<const char*>(datos), cantidad);
    const auto texto = AntesDe(entrada, '\xFF');
    // A text box lets no line ends into a name.
    const std::string campo(AntesDe(PartirEnLineas(std::string(DespuesDe(entrada, '\xFF')) + "\n").front(), '\xFF'));
    const std::string codigo(DespuesDe(DespuesDe(entrada, '\xFF'), '\xFF'));

    static Documento documento;
    static const TextosIdioma textos;
    static VistaIndiferente vista;
    static Ventana ventana(documento, textos, vista);
    Vaciar(documento.especificacion);
    documento.especificacion.TablaArchivo[0] = {campo, "10", "", codigo};

    DialogoDeCodigo dialogo{0, "", codigo, LeerFormulas(texto)};
    ExigirFormulas(texto, dialogo.formulas);
    for (std::size_t i = 0; i < dialogo.formulas.size() && i < formulasPuestas; ++i) {
        const std::string antes = dialogo.ABAPText;
        AplicarFormula(ventana, dialogo, static_cast<int>(i));
        ExigirCodigo(dialogo.ABAPText, antes, dialogo.formulas[i], Recortar(campo));
    }
    const auto& celda = documento.especificacion.TablaArchivo[0].conversion;
    if (CerrarCodigo(ventana, dialogo)) {
        const bool blanco = dialogo.ABAPText.find_first_not_of(" \r\n") == std::string::npos;
        Exigir(celda == dialogo.ABAPText || (blanco && celda.empty()), "the code is stored as it is");
    } else {
        Exigir(celda == codigo, "a code that is refused changes nothing");
    }
    return 0;
}
