#include "input/xlsx_writer.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/code_page.h"
#include "base/failure.h"
#include "base/text.h"
#include "input/xlsx_package.h"

namespace qor {

namespace {

constexpr const char* formatoDeTitulos = "titulos";
constexpr const char* formatoDeMarcados = "marcados";

bool EsCifraHexadecimal(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

// What would be read as an escaped character is written with its first sign escaped.
std::string ParaCelda(std::string_view texto) {
    std::string salida;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        const bool escrito = texto[i] == '_' && texto.size() - i >= 7 && texto[i + 1] == 'x' && texto[i + 6] == '_' &&
                             std::all_of(texto.begin() + static_cast<std::ptrdiff_t>(i) + 2,
                                         texto.begin() + static_cast<std::ptrdiff_t>(i) + 6, EsCifraHexadecimal);
        salida += escrito ? "_x005F_" : std::string(1, texto[i]);
    }
    return AUtf8(salida);
}

}  // namespace

std::string CodigoDeFecha(std::string_view formato) {
    std::string codigo;
    for (const char c : formato) {
        if (c == 'D' || c == 'M' || c == 'Y') {
            codigo += static_cast<char>(c - 'A' + 'a');
        } else {
            codigo += {'\\', c};
        }
    }
    return AUtf8(codigo);
}

std::string CodigoDeDecimales(int decimales) {
    return decimales == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimales), '0');
}

LibroNuevo::LibroNuevo(const std::filesystem::path& destino, Modo modo, bool grande)
    : destino_(destino), archivo_(destino), temporal_(std::filesystem::temp_directory_path().string()) {
    lxw_workbook_options opciones{};
    opciones.constant_memory = modo == Modo::PorFilas ? LXW_TRUE : LXW_FALSE;
    opciones.tmpdir = temporal_.data();
    opciones.use_zip64 = grande ? LXW_TRUE : LXW_FALSE;
    libro_ = workbook_new_opt(trabajo_.Prestar().string().c_str(), &opciones);
    if (libro_ == nullptr) Fallar("There is no memory for the workbook");
    lxw_format* const titulos = formatos_[formatoDeTitulos] = workbook_add_format(libro_);
    lxw_format* const marcados = formatos_[formatoDeMarcados] = workbook_add_format(libro_);
    constexpr lxw_color_t gris = 0xD9D9D9;
    constexpr lxw_color_t azul = 0xBDD7EE;
    for (auto* const formato : {titulos, marcados}) {
        format_set_bold(formato);
        format_set_num_format(formato, "@");
        format_set_bottom(formato, LXW_BORDER_THIN);
        format_set_bg_color(formato, formato == titulos ? gris : azul);
    }
}

LibroNuevo::~LibroNuevo() {
    if (libro_ != nullptr) lxw_workbook_free(libro_);
}

void LibroNuevo::Fallar(const std::string& motivo) const { throw FalloDeArchivo(motivo, destino_); }

void LibroNuevo::Exigir(int error) const {
    if (error != LXW_NO_ERROR) Fallar(lxw_strerror(static_cast<lxw_error>(error)));
}

lxw_format* LibroNuevo::Formato(const std::string& codigo) {
    auto& formato = formatos_[codigo];
    if (formato == nullptr) {
        formato = workbook_add_format(libro_);
        format_set_num_format(formato, codigo.c_str());
    }
    return formato;
}

std::size_t LibroNuevo::AgregarHoja(std::string_view nombre) {
    lxw_worksheet* const hoja = workbook_add_worksheet(libro_, AUtf8(nombre).c_str());
    if (hoja == nullptr) Fallar("The sheet " + AUtf8(nombre) + " can't be made");
    hojas_.push_back(hoja);
    return hojas_.size() - 1;
}

void LibroNuevo::Ocultar(std::size_t hoja) { worksheet_hide(hojas_[hoja]); }

void LibroNuevo::PonerColumnas(std::size_t hoja, const std::vector<FormatoDeColumna>& columnas) {
    constexpr double menor = 6;
    constexpr double mayor = 60;
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        const auto lugar = static_cast<lxw_col_t>(i);
        const double ancho = std::clamp(columnas[i].ancho + 2, menor, mayor);
        Exigir(worksheet_set_column(hojas_[hoja], lugar, lugar, ancho, Formato(columnas[i].codigo)));
    }
}

void LibroNuevo::PonerTitulos(std::size_t hoja, const std::vector<std::string>& titulos,
                              const std::vector<FormatoDeColumna>& columnas, const std::vector<bool>& marcadas) {
    PonerColumnas(hoja, columnas);
    for (std::size_t i = 0; i < titulos.size(); ++i) {
        const bool marcada = i < marcadas.size() && marcadas[i];
        Exigir(worksheet_write_string(hojas_[hoja], 0, static_cast<lxw_col_t>(i), ParaCelda(titulos[i]).c_str(),
                                      formatos_[marcada ? formatoDeMarcados : formatoDeTitulos]));
    }
    worksheet_freeze_panes(hojas_[hoja], 1, 0);
}

void LibroNuevo::Texto(std::size_t hoja, std::uint64_t fila, std::size_t columna, std::string_view texto) {
    if (texto.empty()) return;
    Exigir(worksheet_write_string(hojas_[hoja], static_cast<lxw_row_t>(fila), static_cast<lxw_col_t>(columna),
                                  ParaCelda(texto).c_str(), Formato("@")));
}

void LibroNuevo::Numero(std::size_t hoja, std::uint64_t fila, std::size_t columna, double numero, const std::string& codigo) {
    Exigir(worksheet_write_number(hojas_[hoja], static_cast<lxw_row_t>(fila), static_cast<lxw_col_t>(columna), numero,
                                  Formato(codigo)));
}

void LibroNuevo::Nota(std::size_t hoja, std::uint64_t fila, std::size_t columna, std::string_view texto) {
    Exigir(
        worksheet_write_comment(hojas_[hoja], static_cast<lxw_row_t>(fila), static_cast<lxw_col_t>(columna), AUtf8(texto).c_str()));
}

void LibroNuevo::Validar(std::size_t hoja, std::size_t columna, lxw_data_validation& regla) {
    Exigir(worksheet_data_validation_range(hojas_[hoja], 1, static_cast<lxw_col_t>(columna), LXW_ROW_MAX - 1,
                                           static_cast<lxw_col_t>(columna), &regla));
}

// The library doesn't look whether its temporary files took all that it wrote.
void LibroNuevo::Cerrar() {
    for (auto* const hoja : hojas_) {
        std::FILE* const filas = hoja->optimize_tmpfile;
        if (filas == nullptr) continue;
        errno = 0;
        if (std::fflush(filas) != 0 || std::ferror(filas) != 0) throw FalloDeArchivo(errno ? errno : EIO, temporal_);
    }
    lxw_workbook* const libro = libro_;
    libro_ = nullptr;
    Exigir(workbook_close(libro));
    trabajo_.Retomar();
}

// Every sheet has to be there to its end.
void LibroNuevo::Repasar() {
    const PaqueteXlsx paquete(trabajo_.Ruta());
    constexpr std::string_view final = "</worksheet>";
    std::vector<char> bloque(std::size_t{1} << 18);
    for (std::size_t i = 0; i < hojas_.size(); ++i) {
        const auto parte = paquete.Abrir("xl/worksheets/sheet" + std::to_string(i + 1) + ".xml");
        std::string cola;
        while (const auto leidos = parte->Leer(bloque.data(), bloque.size())) {
            const auto utiles = std::min(leidos, final.size());
            cola.append(bloque.data() + leidos - utiles, utiles);
            if (cola.size() > final.size()) cola.erase(0, cola.size() - final.size());
        }
        if (cola != final) throw FalloDeArchivo(ENOSPC, temporal_);
    }
}

void LibroNuevo::PonerEnSuLugar() {
    Cerrar();
    Repasar();
    std::vector<char> bloque(std::size_t{1} << 18);
    std::uint64_t lugar = 0;
    while (const auto leidos = trabajo_.LeerEn(bloque.data(), bloque.size(), lugar)) {
        archivo_.Escribir({bloque.data(), leidos});
        lugar += leidos;
    }
    archivo_.PonerEnSuLugar();
}

}  // namespace qor
