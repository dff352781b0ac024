#include "practice/table_definition.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t maximoDeNombre = 30;

abap::TipoDeCampo TipoDe(abap::Tipo tipo, std::uint32_t largo) {
    abap::TipoDeCampo campo;
    campo.tipo = tipo;
    campo.largo = largo;
    return campo;
}

}  // namespace

bool DefinicionDeTabla::TieneClave() const {
    return std::any_of(estructura.componentes.begin(), estructura.componentes.end(), [](const auto& c) { return c.clave; });
}

int DefinicionDeTabla::Columna(std::string_view nombre) const {
    const auto& columnas = estructura.componentes;
    const auto lugar = std::find_if(columnas.begin(), columnas.end(), [&](const auto& c) { return c.nombre == nombre; });
    return lugar == columnas.end() ? -1 : static_cast<int>(lugar - columnas.begin());
}

DefinicionDeTabla DefinirTablaDeErrores(std::string_view nombre, std::uint32_t largoDeLinea) {
    using abap::Tipo;
    DefinicionDeTabla tabla;
    tabla.clase = DefinicionDeTabla::Clase::DeErrores;
    auto& e = tabla.estructura;
    e.nombre = nombre;
    e.Agregar("MANDT", TipoDe(Tipo::C, 3), true);
    for (const char* const clave : {"PROGID", "BATCH", "OPERATION", "SEQUENCE"}) e.Agregar(clave, TipoDe(Tipo::N, 10), true);
    e.Agregar("PROCESSED", TipoDe(Tipo::C, 1));
    e.Agregar("USERNAME", TipoDe(Tipo::C, 12));
    e.Agregar("ID", TipoDe(Tipo::N, 3));
    e.Agregar("LENGTH", TipoDe(Tipo::I, 4));
    e.Agregar("LINE", TipoDe(Tipo::C, largoDeLinea));
    e.Cerrar();
    tabla.cliente = 0;
    tabla.larga = tabla.Columna("LINE");
    return tabla;
}

void BuscarCliente(DefinicionDeTabla& tabla) { tabla.cliente = tabla.Columna("MANDT"); }

bool EsNombreDeTabla(std::string_view nombre) {
    if (nombre.empty() || nombre.size() > maximoDeNombre || (nombre[0] >= '0' && nombre[0] <= '9')) return false;
    if (nombre.starts_with("SQLITE_")) return false;
    return std::all_of(nombre.begin(), nombre.end(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '/'; }) &&
           nombre[0] != '_';
}

}  // namespace qor
