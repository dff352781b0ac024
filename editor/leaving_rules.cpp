#include "editor/leaving_rules.h"

#include <algorithm>

#include "base/text.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "model/declarations.h"

namespace qor {

namespace {

constexpr std::size_t largoSinNumero = 25;  // names from this length on get no number
constexpr int largoDeParametro = 8;

// A correction leaves no step to undo, but the specification then differs from its document.
void Corregir(Ventana& ventana, LugarDeCelda lugar, const std::string& texto) {
    if (TextoDe(ventana, lugar) == texto) return;
    PonerEnCelda(ventana, lugar, texto);
    ventana.documento.Cambiar();
}

// Another row of the file side has the name.
bool EstaRepetido(const Ventana& ventana, int fila, std::string_view nombre) {
    if (nombre.empty()) return false;
    const auto& tabla = ventana.documento.especificacion.TablaArchivo;
    for (int r = 0; r <= ultimaFila; ++r) {
        if (r != fila && tabla[r].campo == nombre) return true;
    }
    return false;
}

std::string DefinicionDe(const std::string& parametro, std::string_view campo) {
    if (!Contiene(campo, "-")) return "PARAMETERS: " + parametro + "(30).";
    const auto sinCondicion = AntesDe(campo, ';');
    return "PARAMETERS: " + parametro + " LIKE " + std::string(Recortar(AntesDe(sinCondicion, '('))) + ".";
}

void DeclararParametro(Ventana& ventana, const std::string& parametro, std::string_view campo) {
    std::string& definiciones = ventana.documento.especificacion.VariablesGlobales;
    if (EstaEnBlanco(definiciones)) definiciones.clear();
    if (!definiciones.empty()) definiciones += "\r\n";
    definiciones += DefinicionDe(parametro, campo);
    ventana.documento.Cambiar();
    ventana.vista.Informar(Componer(ventana.textos, {312, " ", parametro, " ", 350}));
}

void ReglaDeVariable(Ventana& ventana, int linea, std::string_view texto) {
    if (Contiene(texto, "-")) return;
    const std::string variable = Mayusculas(texto);
    Corregir(ventana, {Columna::Valor, linea}, variable);
    if (variable.size() == 1) return;
    const auto& definiciones = ventana.documento.especificacion.VariablesGlobales;
    if (EstaDefinido(definiciones, TramoDesde(variable, 2))) return;
    const std::string parametro(Tramo(ReemplazarBlancos(variable), 2, largoDeParametro));
    Corregir(ventana, {Columna::Valor, linea}, "@" + parametro);
    if (EstaDefinido(definiciones, parametro)) return;
    DeclararParametro(ventana, parametro, TextoDe(ventana, {Columna::Campo, linea}));
}

// Adds the field in the first row of the file side without a name, and shows it.
void Autofill(Ventana& ventana, const std::string& campo) {
    auto& tabla = ventana.documento.especificacion.TablaArchivo;
    const int r = ventana.documento.especificacion.FilasArchivo();
    const auto esEse = [&](const FilaDeArchivo& fila) { return IgualesSinCaja(Recortar(fila.campo), campo); };
    if (std::any_of(tabla.begin(), tabla.end(), esEse)) return;
    if (r > ultimaFila) return;  // the file side is full
    const int linea = std::min(r, lineasArchivo - 1);
    ventana.documento.GuardarDeshacer({RegistroDeshacer::Paso::Cambio, linea, r - linea, tabla[r]});
    tabla[r].campo = campo;
    MostrarArchivoSinFocus(ventana, r >= lineasArchivo ? r - linea : ventana.archivo.PrimeraFilaArchivo);
}

// Characters of the value were replaced: it may have been meant as a constant.
void Avisar(Ventana& ventana, const std::string& escrito, const std::string& campo) {
    const auto aviso = Componer(ventana.textos, {435, " ", escrito, " ", 436, " ", campo, ". ", 437, " '", escrito, "'"});
    ventana.aviso = aviso.texto;
}

// The text with the number at its end raised by one; a text without one gets 2.
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

}  // namespace

bool ReglaDeDuplicados(Ventana& ventana, int linea) {
    if (ventana.DuplicadoRevisado) return true;
    const LugarDeCelda lugar{Columna::CampoDeArchivo, linea};
    const int fila = FilaDe(ventana, lugar);
    std::string nombre = Mayusculas(Recortar(TextoDe(ventana, lugar)));
    bool admitido = true;
    while (EstaRepetido(ventana, fila, nombre)) {
        if (nombre.size() < largoSinNumero) {
            nombre = SiguienteNombre(nombre);
        } else {
            ventana.vista.Advertir(Componer(ventana.textos, {338}));
            nombre.clear();
            admitido = false;
        }
        Corregir(ventana, lugar, nombre);
    }
    ventana.DuplicadoRevisado = true;
    return admitido;
}

bool ReglaDeValor(Ventana& ventana, int linea) {
    const std::string texto(Recortar(TextoDe(ventana, {Columna::Valor, linea})));
    if (texto.empty() || Contiene(texto, "'")) return true;
    if (texto.front() == '@') {
        ReglaDeVariable(ventana, linea, texto);
        return true;
    }
    std::string campo = ReemplazarBlancos(texto);
    const bool admitido = campo.size() <= largoMaximoDeCampo;
    if (!admitido) {
        ventana.vista.Advertir(Componer(ventana.textos, {333, " 30."}));
        campo.resize(largoMaximoDeCampo);
    }
    Corregir(ventana, {Columna::Valor, linea}, campo);
    if (admitido && campo != texto) Avisar(ventana, texto, Mayusculas(campo));
    if (ventana.documento.opciones.Autofill == 1) Autofill(ventana, Mayusculas(campo));
    return admitido;
}

}  // namespace qor
