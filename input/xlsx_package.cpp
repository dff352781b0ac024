#include "input/xlsx_package.h"

#include <zip.h>

#include <algorithm>
#include <pugixml.hpp>

#include "base/failure.h"

namespace qor {

namespace {

constexpr std::uint64_t limiteDeParte = std::uint64_t{16} << 20;
// Rows of numbers and texts are pressed to a twentieth or so. What comes near a thousandth was made to fill memories and disks.
constexpr std::uint64_t limiteDeProporcion = 250;
constexpr std::uint64_t tamanoSinSospecha = std::uint64_t{64} << 20;
constexpr std::string_view firmaCompuesta = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr const char* motivoCifrado = "The workbook is encrypted; save it without a password";

// A name in the directory of a compound file, in UTF-16.
std::string EnUtf16(std::string_view nombre) {
    std::string texto;
    for (const char c : nombre) texto += {c, '\0'};
    return texto;
}

bool Contiene(const ArchivoAbierto& archivo, const std::string& buscado) {
    constexpr std::size_t bloque = std::size_t{1} << 18;
    std::string ventana;
    for (std::uint64_t lugar = 0;;) {
        const auto resto = std::min(ventana.size(), buscado.size() - 1);
        ventana.erase(0, ventana.size() - resto);
        ventana.resize(resto + bloque);
        const auto leidos = archivo.LeerEn(ventana.data() + resto, bloque, lugar);
        ventana.resize(resto + leidos);
        if (ventana.find(buscado) != std::string::npos) return true;
        if (leidos == 0) return false;
        lugar += leidos;
    }
}

// The name of a part as a relation of `desde` has it: absolute, or seen from the directory of `desde`.
std::string Resolver(const std::string& desde, const std::string& destino) {
    const auto ruta =
        destino.starts_with("/") ? std::filesystem::path(destino.substr(1)) : std::filesystem::path(desde).parent_path() / destino;
    return ruta.lexically_normal().generic_string();
}

}  // namespace

ParteXlsx::~ParteXlsx() { zip_fclose(entrada_); }

std::size_t ParteXlsx::Leer(char* donde, std::size_t cuanto) {
    const auto leidos = zip_fread(entrada_, donde, cuanto);
    if (leidos < 0) Fallar(zip_error_strerror(zip_file_get_error(entrada_)));
    if (static_cast<std::uint64_t>(leidos) > quedan_) Fallar("a part is larger than it says");
    quedan_ -= static_cast<std::uint64_t>(leidos);
    return static_cast<std::size_t>(leidos);
}

void ParteXlsx::Fallar(const std::string& motivo) const { paquete_.Fallar(motivo); }

PaqueteXlsx::PaqueteXlsx(const std::filesystem::path& ruta) : archivo_(ruta) {
    Reconocer();
    const int propio = llamadas::Duplicar(archivo_.Numero());
    int error = ZIP_ER_OPEN;
    zip_ = propio < 0 ? nullptr : zip_fdopen(propio, ZIP_RDONLY, &error);
    if (zip_ != nullptr) return;
    if (propio >= 0) llamadas::Cerrar(propio);
    if (error == ZIP_ER_NOZIP) throw FalloDeArchivo("The file is no workbook in the format .xlsx, or it is cut off", ruta);
    zip_error_t detalle;
    zip_error_init_with_code(&detalle, error);
    const std::string motivo = zip_error_strerror(&detalle);
    zip_error_fini(&detalle);
    Fallar(motivo);
}

PaqueteXlsx::~PaqueteXlsx() {
    if (zip_ != nullptr) zip_discard(zip_);
}

void PaqueteXlsx::Fallar(const std::string& motivo) const {
    throw FalloDeArchivo("The workbook is damaged (" + motivo + ")", archivo_.Ruta());
}

void PaqueteXlsx::OtroFormato(const std::string& cual) const {
    throw FalloDeArchivo("The file is " + cual + "; save it in the format .xlsx", archivo_.Ruta());
}

// Formats of workbooks that are often taken for this one.
void PaqueteXlsx::Reconocer() const {
    char firma[firmaCompuesta.size()];
    const auto leidos = archivo_.LeerEn(firma, sizeof firma, 0);
    if (std::string_view(firma, leidos) != firmaCompuesta) return;
    const bool cifrado = Contiene(archivo_, EnUtf16("EncryptedPackage"));
    if (cifrado) throw FalloDeArchivo(motivoCifrado, archivo_.Ruta());
    OtroFormato("a workbook of an older format");
}

bool PaqueteXlsx::Tiene(const std::string& nombre) const { return zip_name_locate(zip_, nombre.c_str(), ZIP_FL_NOCASE) >= 0; }

std::unique_ptr<ParteXlsx> PaqueteXlsx::Abrir(const std::string& nombre) const {
    const auto lugar = zip_name_locate(zip_, nombre.c_str(), ZIP_FL_NOCASE);
    if (lugar < 0) Fallar("there is no part " + nombre);
    zip_stat_t datos;
    zip_stat_init(&datos);
    constexpr zip_uint64_t pedidos = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_ENCRYPTION_METHOD;
    if (zip_stat_index(zip_, static_cast<zip_uint64_t>(lugar), 0, &datos) != 0 || (datos.valid & pedidos) != pedidos) {
        Fallar("the part " + nombre + " has no size");
    }
    if (datos.encryption_method != ZIP_EM_NONE) {
        throw FalloDeArchivo(motivoCifrado, archivo_.Ruta());
    }
    if (datos.size > tamanoSinSospecha && datos.size / limiteDeProporcion > datos.comp_size) {
        throw FalloDeArchivo("The part " + nombre + " of the workbook is " + std::to_string(datos.size >> 20) +
                                 " megabytes pressed into " + std::to_string(datos.comp_size >> 10) +
                                 " kilobytes, which no workbook is; it is not read",
                             archivo_.Ruta());
    }
    zip_file_t* const entrada = zip_fopen_index(zip_, static_cast<zip_uint64_t>(lugar), 0);
    if (entrada == nullptr) Fallar(zip_error_strerror(zip_get_error(zip_)));
    return std::unique_ptr<ParteXlsx>(new ParteXlsx(*this, entrada, datos.size));
}

std::string PaqueteXlsx::LeerTodo(const std::string& nombre) const {
    const auto parte = Abrir(nombre);
    std::string texto;
    char bloque[16384];
    while (const auto leidos = parte->Leer(bloque, sizeof bloque)) {
        texto.append(bloque, leidos);
        if (texto.size() > limiteDeParte) Fallar("the part " + nombre + " has more than 16 megabytes");
    }
    return texto;
}

std::vector<PaqueteXlsx::Relacion> PaqueteXlsx::Relaciones(const std::string& nombre) const {
    const std::filesystem::path ruta = nombre;
    const auto donde = (ruta.parent_path() / "_rels" / (ruta.filename().string() + ".rels")).generic_string();
    std::vector<Relacion> relaciones;
    if (!Tiene(donde)) return relaciones;
    const auto texto = LeerTodo(donde);
    pugi::xml_document xml;
    if (!xml.load_buffer(texto.data(), texto.size())) Fallar("the part " + donde + " is no XML");
    for (const auto& nodo : xml.document_element().children()) {
        const std::string clase = nodo.attribute("Type").value();
        if (std::string_view(nodo.attribute("TargetMode").value()) == "External") continue;
        relaciones.push_back(
            {nodo.attribute("Id").value(), clase.substr(clase.rfind('/') + 1), Resolver(nombre, nodo.attribute("Target").value())});
    }
    return relaciones;
}

}  // namespace qor
