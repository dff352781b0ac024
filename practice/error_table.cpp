#include <algorithm>

#include "practice/database.h"
#include "practice/database_entry.h"
#include "practice/error_rows.h"
#include "practice/query_text.h"

// The error table that a report asks for.
namespace qor {

namespace {

bool MismasColumnas(const DefinicionDeTabla& una, const DefinicionDeTabla& otra) {
    const auto& a = una.estructura.componentes;
    const auto& b = otra.estructura.componentes;
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) { return x.nombre == y.nombre; });
}

// The columns of a loaded table, where it can become an error table: no others than that one has, and the key and the line.
std::vector<std::string> ColumnasDe(const DefinicionDeTabla& vieja, const DefinicionDeTabla& nueva) {
    std::vector<std::string> columnas;
    for (const auto& columna : vieja.estructura.componentes) {
        if (nueva.Columna(columna.nombre) < 0) return {};
        columnas.push_back(columna.nombre);
    }
    for (const char* const nombre : {"PROGID", "BATCH", "OPERATION", "SEQUENCE", "ID", "LINE"}) {
        if (vieja.Columna(nombre) < 0) return {};
    }
    return columnas;
}

[[noreturn]] void NoEsDeErrores(std::string_view nombre, const std::string& motivo) {
    throw FalloDeEjecucion("the table " + std::string(nombre) +
                           " of the practice system can't be the report's error table: " + motivo);
}

}  // namespace

void BaseDePractica::CrearTablaDeErrores(std::string_view nombre, std::uint32_t largoDeLinea) {
    auto nueva = DefinirTablaDeErrores(nombre, largoDeLinea);
    const auto* const entrada = Buscar(nombre);
    try {
        if (entrada == nullptr) {
            if (!EsNombreDeTabla(nombre)) throw FalloDeEjecucion("\"" + std::string(nombre) + "\" is no name of a table");
            CrearTabla(std::move(nueva));
        } else if (entrada->definicion.clase == DefinicionDeTabla::Clase::Cargada && entrada->hecha) {
            AdoptarTablaDeErrores(entrada->definicion, std::move(nueva));
        } else {
            const auto& vieja = entrada->definicion;
            if (!MismasColumnas(vieja, nueva)) NoEsDeErrores(nombre, "it has other columns");
            const auto ancho = vieja.estructura.componentes[static_cast<std::size_t>(nueva.larga)].tipo.largo;
            if (ancho >= largoDeLinea) return;
            if (vieja.clase != DefinicionDeTabla::Clase::DeErrores) {
                NoEsDeErrores(nombre, "its lines have " + std::to_string(ancho) + " characters");
            }
            EnsancharTablaDeErrores(std::move(nueva));
        }
        TerminarUnidad();
    } catch (...) {
        AbandonarUnidad();
        throw;
    }
}

// The rows stay; the database itself knows of no widths.
void BaseDePractica::EnsancharTablaDeErrores(DefinicionDeTabla nueva) {
    EmpezarUnidad();
    esquemaCambiado_ = true;
    auto& columna = conexion_->Guardada("UPDATE _qor_columns SET length = ? WHERE tab = ? AND name = 'LINE'");
    const std::string nombre = nueva.estructura.nombre;
    columna.Ligar(0, static_cast<std::int64_t>(nueva.estructura.componentes[static_cast<std::size_t>(nueva.larga)].tipo.largo));
    columna.LigarTexto(1, nombre);
    columna.Ejecutar();
    auto entrada = std::make_unique<Entrada>();
    entrada->definicion = std::move(nueva);
    entrada->lugar = "main." + Entrecomillado(nombre);
    entrada->hecha = true;
    auto& lugar = tablas_[nombre];
    lugar->SoltarSentencias();
    antiguas_.push_back(std::move(lugar));
    lugar = std::move(entrada);
}

void BaseDePractica::AdoptarTablaDeErrores(const DefinicionDeTabla& vieja, DefinicionDeTabla nueva) {
    const std::string nombre = nueva.estructura.nombre;
    const auto columnas = ColumnasDe(vieja, nueva);
    if (columnas.empty()) NoEsDeErrores(nombre, "it was loaded with other columns");
    auto& linea = nueva.estructura.componentes[static_cast<std::size_t>(nueva.larga)].tipo.largo;
    const auto ancha = vieja.estructura.Buscar("LINE")->tipo.largo;
    if (ancha > linea) nueva = DefinirTablaDeErrores(nombre, ancha);

    std::vector<FilaDeTextos> filas;
    const auto leer = conexion_->Preparar("SELECT * FROM main." + Entrecomillado(nombre) + " ORDER BY rowid");
    std::vector<std::string> textos(columnas.size());
    while (leer->Paso()) {
        for (std::size_t i = 0; i < textos.size(); ++i) textos[i] = leer->Texto(static_cast<int>(i));
        filas.push_back(LeerFila(nueva, columnas, textos, cliente_));
        if (!filas.back().motivo.empty()) NoEsDeErrores(nombre, "row " + std::to_string(filas.size()) + ": " + filas.back().motivo);
    }
    CrearTabla(std::move(nueva));
    const auto& tabla = *BuscarTabla(nombre);
    for (std::size_t i = 0; i < filas.size(); ++i) {
        if (!PonerFilaEn(tabla, filas[i].valores)) {
            NoEsDeErrores(nombre, "row " + std::to_string(i + 1) + " has the key of another one");
        }
    }
}

}  // namespace qor
