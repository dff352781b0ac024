#include "editor/row_block.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "editor/key_filters.h"
#include "editor/leaving_rules.h"
#include "editor/tables_step.h"

namespace qor {

namespace {

using Fila = std::vector<std::string>;
using Bloque = std::vector<Fila>;

// Where the rules speak to while it isn't known yet whether the block can be taken: a warning refuses it.
class VistaDeTanteo final : public VistaSinPantalla {
public:
    std::optional<Mensaje> aviso;
    std::vector<std::string> noticias;

    void Mostrar(const Mensaje& mensaje, Icono icono) override {
        if (icono == Icono::Informacion) {
            noticias.push_back(mensaje.texto);
        } else if (!aviso) {
            aviso = mensaje;
        }
    }
    Respuesta Preguntar(const Mensaje& /*mensaje*/, Botones /*botones*/) override { return Respuesta::Cancelar; }
};

// The cell that begins at `i`, which then stands behind it.
std::string LeerCelda(std::string_view texto, std::size_t& i) {
    std::string celda;
    if (i < texto.size() && texto[i] == '"') {
        for (++i; i < texto.size(); ++i) {
            if (texto[i] == '"' && (++i == texto.size() || texto[i] != '"')) break;
            celda += texto[i];
        }
    }
    for (; i < texto.size() && texto[i] != '\t' && texto[i] != '\r' && texto[i] != '\n'; ++i) celda += texto[i];
    return std::string(Recortar(celda));
}

// The block put into a copy of the specification.
class Pegado {
public:
    Pegado(const Ventana& ventana, LugarDeCelda lugar)
        : prueba(copia, ventana.textos, vista), columna_(lugar.columna), tabla_(TablaDe(lugar.columna)), textos_(ventana.textos) {
        copia.especificacion = ventana.documento.especificacion;
        copia.opciones = ventana.documento.opciones;
        prueba.archivo = ventana.archivo;
        prueba.transaccion = ventana.transaccion;
        fila_ = FilaDe(ventana, lugar);
    }

    Documento copia;
    VistaDeTanteo vista;
    Ventana prueba;
    std::string aviso;  // the first hint that a value of the block gave

    // Why the block can't be taken; nothing when it is in the copy.
    std::optional<Mensaje> Poner(const Bloque& bloque) {
        const auto columnas = ColumnasDe(tabla_).subspan(NumeroDeColumna(columna_));
        const auto ancho = std::max_element(bloque.begin(), bloque.end(), [](const Fila& a, const Fila& b) {
                               return a.size() < b.size();
                           })->size();
        if (ancho > columnas.size()) return Componer(textos_, {431, " ", std::to_string(columnas.size()), "."});
        const int lugarParaFilas = ultimaFila - fila_ + 1;
        if (static_cast<int>(bloque.size()) > lugarParaFilas) {
            return Componer(textos_, {432, " ", std::to_string(lugarParaFilas), "."});
        }
        // What the block covers is gone before its first row, so that no name of it counts as taken.
        for (std::size_t i = 0; i < bloque.size(); ++i) {
            const int linea = Linea(fila_ + static_cast<int>(i));
            for (const Columna columna : columnas.first(bloque[i].size())) PonerEnCelda(prueba, {columna, linea}, "");
        }
        for (std::size_t i = 0; i < bloque.size(); ++i) {
            for (std::size_t c = 0; c < bloque[i].size(); ++c) {
                if (!bloque[i][c].empty()) PonerCelda({columnas[c], Linea(fila_ + static_cast<int>(i))}, bloque[i][c]);
                if (vista.aviso) {
                    Mensaje porque = Componer(textos_, {433, " ", std::to_string(i + 1), ".\r\r"});
                    porque.numeros.insert(porque.numeros.end(), vista.aviso->numeros.begin(), vista.aviso->numeros.end());
                    porque.texto += vista.aviso->texto;
                    return porque;
                }
            }
        }
        return std::nullopt;
    }

    // The line of a row, which the grid shows behind this.
    int Linea(int fila) {
        const int lineas = LineasDe(columna_);
        const int& primera =
            tabla_ == Tabla::Archivo ? prueba.archivo.PrimeraFilaArchivo : prueba.transaccion.PrimeraFilaTransaccion;
        const auto mostrar = tabla_ == Tabla::Archivo ? MostrarArchivoSinFocus : MostrarTransaccionSinFocus;
        if (fila < primera) mostrar(prueba, fila);
        if (fila >= primera + lineas) mostrar(prueba, fila - lineas + 1);
        return fila - primera;
    }

private:
    void PonerCelda(LugarDeCelda lugar, const std::string& texto) {
        const std::string filtrado = FiltrarTextoDeCelda(prueba, lugar, texto);
        if (vista.aviso) return;
        // The digits of "18.5" are another width.
        if (lugar.columna == Columna::Ancho && filtrado != texto) return prueba.vista.Advertir(Componer(textos_, {434}));
        const int fila = FilaDe(prueba, lugar);
        EscribirEnCelda(prueba, lugar, filtrado);
        if (lugar.columna == Columna::CampoDeArchivo) ReglaDeDuplicados(prueba, lugar.linea);
        if (lugar.columna == Columna::Valor) ReglaDeValor(prueba, Linea(fila));
        if (aviso.empty()) aviso = std::exchange(prueba.aviso, {});
    }

    Columna columna_;
    Tabla tabla_;
    const TextosIdioma& textos_;
    int fila_ = 0;
};

std::string EnBloque(const std::string& celda) {
    if (celda.find_first_of("\t\r\n\"") == std::string::npos) return celda;
    return '"' + ReemplazarTodo(celda, "\"", "\"\"") + '"';
}

// What the rules had to tell, each text once.
void Contar(Vista& vista, std::vector<std::string> noticias) {
    constexpr std::size_t alaVista = 10;
    std::vector<std::string> textos;
    for (auto& noticia : noticias) {
        if (std::find(textos.begin(), textos.end(), noticia) == textos.end()) textos.push_back(std::move(noticia));
    }
    if (textos.empty()) return;
    Mensaje mensaje = MensajeLiteral("");
    for (std::size_t i = 0; i < std::min(textos.size(), alaVista); ++i) mensaje.texto += (i > 0 ? "\r" : "") + textos[i];
    if (textos.size() > alaVista) mensaje.texto += "\r...";
    vista.Informar(mensaje);
}

}  // namespace

std::vector<std::vector<std::string>> LeerBloque(std::string_view texto) {
    Bloque bloque{{}};
    for (std::size_t i = 0;; ++i) {
        bloque.back().push_back(LeerCelda(texto, i));
        if (i >= texto.size()) break;
        if (texto[i] == '\t') continue;
        if (texto.substr(i).starts_with("\r\n")) ++i;
        if (i + 1 == texto.size()) break;
        bloque.emplace_back();
    }
    if (bloque.size() == 1 && bloque.front().size() == 1) bloque.clear();
    return bloque;
}

bool PegarBloque(Ventana& ventana, LugarDeCelda lugar, std::string_view texto) {
    auto bloque = LeerBloque(texto);
    if (bloque.empty()) return false;
    Pegado pegado(ventana, lugar);
    if (const auto porque = pegado.Poner(bloque)) {
        ventana.vista.Advertir(*porque);
        return false;
    }
    const int ultima = FilaDe(ventana, lugar) + static_cast<int>(bloque.size()) - 1;
    const int linea = pegado.Linea(ultima);
    const auto paso = PasoDeTablas(ventana, lugar);
    auto& documento = ventana.documento;
    const auto& nueva = pegado.copia.especificacion;
    if (nueva.TablaArchivo != documento.especificacion.TablaArchivo ||
        nueva.TablaTransaccion != documento.especificacion.TablaTransaccion) {
        documento.GuardarDeshacer(paso);
    }
    documento.especificacion = std::move(pegado.copia.especificacion);
    ventana.archivo = pegado.prueba.archivo;
    ventana.transaccion = pegado.prueba.transaccion;
    ventana.DuplicadoRevisado = true;
    ventana.aviso = pegado.aviso;
    ventana.foco.reset();
    EnfocarCelda(ventana, {lugar.columna, linea});
    Contar(ventana.vista, std::move(pegado.vista.noticias));
    return true;
}

std::string CopiarFilas(const Ventana& ventana, Tabla tabla, int desde, int hasta) {
    const auto& especificacion = ventana.documento.especificacion;
    std::string texto;
    for (int r = desde; r <= hasta; ++r) {
        const char* separador = "";
        for (const Columna columna : ColumnasDe(tabla)) {
            texto += separador;
            texto += EnBloque(tabla == Tabla::Archivo ? especificacion.TablaArchivo[r].*ColumnaDeArchivo(columna)
                                                      : especificacion.TablaTransaccion[r].*ColumnaDeTransaccion(columna));
            separador = "\t";
        }
        texto += '\n';
    }
    return texto;
}

}  // namespace qor
