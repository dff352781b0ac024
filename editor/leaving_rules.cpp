#include "editor/leaving_rules.h"

#include <algorithm>

#include "base/text.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

constexpr std::size_t largoSinNumero = 25;  // names from this length on get no number
constexpr int largoDeParametro = 8;

// A correction leaves no step to undo, but the specification then differs from its document.
void Corregir(Editor& editor, LugarDeCelda lugar, const std::string& texto) {
    if (TextoDe(editor, lugar) == texto) return;
    CambiarCelda(editor, lugar.columna, lugar.linea, texto);
    editor.HayCambios = true;
}

// Another row of the file side has the name.
bool EstaRepetido(const Editor& editor, int fila, std::string_view nombre) {
    if (nombre.empty()) return false;
    const auto& tabla = editor.especificacion.TablaArchivo;
    for (int r = 0; r <= ultimaFila; ++r) {
        if (r != fila && tabla[r].campo == nombre) return true;
    }
    return false;
}

// The definitions hold the name in front of a character that can end one.
bool EstaDefinido(const std::string& definiciones, std::string_view nombre) {
    const std::string buscado(nombre);
    return Contiene(definiciones, buscado + ".") || Contiene(definiciones, buscado + " ") || Contiene(definiciones, buscado + "(");
}

std::string DefinicionDe(const std::string& parametro, std::string_view campo) {
    if (!Contiene(campo, "-")) return "PARAMETERS: " + parametro + "(30).";
    const auto sinCondicion = AntesDe(campo, ';');
    return "PARAMETERS: " + parametro + " LIKE " + std::string(Recortar(AntesDe(sinCondicion, '('))) + ".";
}

void DeclararParametro(Editor& editor, const std::string& parametro, std::string_view campo) {
    std::string& definiciones = editor.especificacion.VariablesGlobales;
    if (EstaEnBlanco(definiciones)) definiciones.clear();
    if (!definiciones.empty()) definiciones += "\r\n";
    definiciones += DefinicionDe(parametro, campo);
    editor.HayCambios = true;
    editor.vista.Informar(Componer(editor.textos, {312, " ", parametro, " ", 350}));
}

void ReglaDeVariable(Editor& editor, int linea, std::string_view texto) {
    if (Contiene(texto, "-")) return;
    const std::string variable = Mayusculas(texto);
    Corregir(editor, {Columna::Text5, linea}, variable);
    if (variable.size() == 1) return;
    const auto& definiciones = editor.especificacion.VariablesGlobales;
    if (EstaDefinido(definiciones, TramoDesde(variable, 2))) return;
    const std::string parametro(Tramo(ReemplazarBlancos(variable), 2, largoDeParametro));
    Corregir(editor, {Columna::Text5, linea}, "@" + parametro);
    if (EstaDefinido(definiciones, parametro)) return;
    DeclararParametro(editor, parametro, TextoDe(editor, {Columna::Text4, linea}));
}

// Adds the field behind the last one of the file side, and shows it.
void Autofill(Editor& editor, const std::string& campo) {
    auto& tabla = editor.especificacion.TablaArchivo;
    const int r = editor.especificacion.FilasArchivo();
    for (int f = 0; f < r; ++f) {
        if (tabla[f].campo == campo) return;
    }
    if (r > ultimaFila) return;  // the file side is full
    const int linea = std::min(r, lineasArchivo - 1);
    GuardarDeshacer(editor, {RegistroDeshacer::Paso::Cambio, linea, r - linea, tabla[r]});
    tabla[r].campo = campo;
    MostrarArchivoSinFocus(editor, r >= lineasArchivo ? r - linea : editor.archivo.PrimeraFilaArchivo);
}

}  // namespace

std::string SiguienteNombre(std::string_view texto) {
    const auto resto = texto.substr(0, texto.find_last_not_of("0123456789") + 1);
    std::string numero(texto.substr(resto.size()));
    if (numero.empty()) return std::string(resto) + "2";
    numero.erase(0, std::min(numero.find_first_not_of('0'), numero.size() - 1));
    auto cifra = numero.rbegin();
    for (; cifra != numero.rend() && *cifra == '9'; ++cifra) *cifra = '0';
    if (cifra == numero.rend()) {
        numero.insert(0, 1, '1');
    } else {
        ++*cifra;
    }
    return std::string(resto) + numero;
}

void ReglaDeDuplicados(Editor& editor, int linea) {
    if (editor.DuplicadoRevisado) return;
    const SinRegistrarCambios sinRegistrar(editor);
    const LugarDeCelda lugar{Columna::Text1, linea};
    const int fila = FilaDe(editor, lugar);
    std::string nombre = Mayusculas(Recortar(TextoDe(editor, lugar)));
    while (EstaRepetido(editor, fila, nombre)) {
        if (nombre.size() < largoSinNumero) {
            nombre = SiguienteNombre(nombre);
        } else {
            editor.vista.Advertir(Componer(editor.textos, {338}));
            nombre.clear();
        }
        Corregir(editor, lugar, nombre);
    }
    editor.DuplicadoRevisado = true;
}

void ReglaDeValor(Editor& editor, int linea) {
    const std::string texto(Recortar(TextoDe(editor, {Columna::Text5, linea})));
    if (texto.empty() || Contiene(texto, "'")) return;
    const SinRegistrarCambios sinRegistrar(editor);
    if (texto.front() == '@') return ReglaDeVariable(editor, linea, texto);
    std::string campo = ReemplazarBlancos(texto);
    if (campo.size() > largoMaximoDeCampo) {
        editor.vista.Advertir(Componer(editor.textos, {333, " 30."}));
        campo.resize(largoMaximoDeCampo);
    }
    Corregir(editor, {Columna::Text5, linea}, campo);
    if (editor.opciones.Autofill == 1) Autofill(editor, Mayusculas(campo));
}

}  // namespace qor
