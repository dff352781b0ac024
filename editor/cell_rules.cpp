#include "editor/cell_rules.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace qor {

namespace {

template <typename UnEditor>
auto& BuscarCelda(UnEditor& editor, LugarDeCelda lugar) {
    const auto i = static_cast<std::size_t>(lugar.linea);
    switch (lugar.columna) {
        case Columna::Text1: return editor.archivo.Text1[i];
        case Columna::Text2: return editor.archivo.Text2[i];
        case Columna::Text6: return editor.transaccion.Text6[i];
        case Columna::Text3: return editor.transaccion.Text3[i];
        case Columna::Text4: return editor.transaccion.Text4[i];
        case Columna::Text5: break;
    }
    return editor.transaccion.Text5[i];
}

template <typename Fila>
void GuardarFila(Editor& editor, int linea, int primeraFila, const Fila& fila) {
    if (editor.RegistrarCambios) GuardarDeshacer(editor, {RegistroDeshacer::Paso::Cambio, linea, primeraFila, fila});
}

void CambiarEnArchivo(Editor& editor, LugarDeCelda lugar, const std::string& texto) {
    auto& fila = editor.especificacion.TablaArchivo[FilaDe(editor, lugar)];
    GuardarFila(editor, lugar.linea, editor.archivo.PrimeraFilaArchivo, fila);
    fila.*ColumnaDeArchivo(lugar.columna) = Mayusculas(Recortar(texto));
    if (lugar.columna != Columna::Text1) return;
    editor.DuplicadoRevisado = false;
    if (texto.size() > largoMaximoDeCampo) {
        editor.vista.Advertir(Componer(editor.textos, {333, " 30."}));
        CambiarCelda(editor, lugar.columna, lugar.linea, texto.substr(0, largoMaximoDeCampo));
    }
}

void CambiarEnTransaccion(Editor& editor, LugarDeCelda lugar, const std::string& texto) {
    const auto cortado = Recortar(texto);
    if (lugar.columna == Columna::Text6) {
        const Color color = cortado == "TRANS" || cortado == "BAPI" ? Color::Azul : Color::Negro;
        CeldaDe(editor, lugar).color = color;
        CeldaDe(editor, {Columna::Text3, lugar.linea}).color = color;
    }
    auto& fila = editor.especificacion.TablaTransaccion[FilaDe(editor, lugar)];
    GuardarFila(editor, lugar.linea, editor.transaccion.PrimeraFilaTransaccion, fila);
    const bool esConstante = lugar.columna == Columna::Text5 && cortado.starts_with('\'');
    fila.*ColumnaDeTransaccion(lugar.columna) = esConstante ? std::string(cortado) : Mayusculas(cortado);
}

}  // namespace

Tabla TablaDe(Columna columna) { return columna <= Columna::Text2 ? Tabla::Archivo : Tabla::Transaccion; }

std::size_t NumeroDeColumna(Columna columna) {
    const auto primera = TablaDe(columna) == Tabla::Archivo ? Columna::Text1 : Columna::Text6;
    return static_cast<std::size_t>(columna) - static_cast<std::size_t>(primera);
}

std::string FilaDeArchivo::*ColumnaDeArchivo(Columna columna) { return columnasDeArchivo[NumeroDeColumna(columna)]; }

std::string FilaDeTransaccion::*ColumnaDeTransaccion(Columna columna) { return columnasDeTransaccion[NumeroDeColumna(columna)]; }

int LineasDe(Columna columna) { return TablaDe(columna) == Tabla::Archivo ? lineasArchivo : lineasTransaccion; }

Celda& CeldaDe(Editor& editor, LugarDeCelda lugar) { return BuscarCelda(editor, lugar); }
const Celda& CeldaDe(const Editor& editor, LugarDeCelda lugar) { return BuscarCelda(editor, lugar); }
const std::string& TextoDe(const Editor& editor, LugarDeCelda lugar) { return CeldaDe(editor, lugar).texto; }

int FilaDe(const Editor& editor, LugarDeCelda lugar) {
    const bool deArchivo = TablaDe(lugar.columna) == Tabla::Archivo;
    return lugar.linea + (deArchivo ? editor.archivo.PrimeraFilaArchivo : editor.transaccion.PrimeraFilaTransaccion);
}

std::string NombreDeControl(LugarDeCelda lugar) {
    constexpr std::array<const char*, 6> nombres = {"Text1_", "Text2_", "Text6_", "Text3_", "Text4_", "Text5_"};
    return nombres[static_cast<std::size_t>(lugar.columna)] + std::to_string(lugar.linea);
}

void CambiarCelda(Editor& editor, Columna columna, int linea, const std::string& texto) {
    const LugarDeCelda lugar{columna, linea};
    Celda& celda = CeldaDe(editor, lugar);
    if (celda.texto == texto) return;
    celda.texto = texto;
    if (TablaDe(columna) == Tabla::Archivo) {
        CambiarEnArchivo(editor, lugar, texto);
    } else {
        CambiarEnTransaccion(editor, lugar, texto);
    }
}

}  // namespace qor
