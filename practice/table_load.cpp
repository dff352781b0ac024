#include "practice/table_load.h"

#include <algorithm>
#include <set>

#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "practice/csv.h"
#include "practice/error_rows.h"
#include "practice/query_text.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeCampo = 65535;
constexpr std::size_t maximoDeNombre = 30;

[[noreturn]] void Fallar(std::size_t linea, const std::string& motivo) {
    throw FalloDeEjecucion("line " + std::to_string(linea) + ": " + motivo);
}

bool EsNombreDeColumna(std::string_view nombre) {
    return !nombre.empty() && nombre.size() <= maximoDeNombre && std::all_of(nombre.begin(), nombre.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '/' || static_cast<unsigned char>(c) >= 0xC0;
    });
}

std::vector<std::string> LeerCabeza(LectorCsv& lector) {
    LineaCsv linea;
    if (!lector.Siguiente(linea)) Fallar(1, "there is no line with the names of the columns");
    std::set<std::string> vistas;
    for (auto& nombre : linea.campos) {
        nombre = Mayusculas(Recortar(nombre));
        if (!EsNombreDeColumna(nombre)) Fallar(linea.linea, "\"" + nombre + "\" is no name of a column");
        if (!vistas.insert(nombre).second) Fallar(linea.linea, "the column " + nombre + " stands there twice");
    }
    return linea.campos;
}

// Goes through all lines behind the head.
template <typename Hacer>
void CadaLinea(std::string_view texto, std::size_t columnas, Hacer hacer) {
    LectorCsv lector(texto);
    LineaCsv linea;
    lector.Siguiente(linea);
    while (lector.Siguiente(linea)) {
        if (linea.campos.size() != columnas) {
            Fallar(linea.linea, std::to_string(linea.campos.size()) + (linea.campos.size() == 1 ? " value for " : " values for ") +
                                    std::to_string(columnas) + " columns");
        }
        hacer(linea);
    }
}

DefinicionDeTabla DefinirPorAnchos(std::string_view nombre, const std::vector<std::string>& columnas, std::string_view texto) {
    std::vector<std::size_t> anchos(columnas.size(), 1);
    CadaLinea(texto, columnas.size(), [&](const LineaCsv& linea) {
        for (std::size_t i = 0; i < anchos.size(); ++i) {
            anchos[i] = std::max(anchos[i], linea.campos[i].size());
            if (anchos[i] > maximoDeCampo) Fallar(linea.linea, "a value is longer than 65535 characters");
        }
    });
    DefinicionDeTabla tabla;
    tabla.estructura.nombre = nombre;
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        abap::TipoDeCampo tipo;
        tipo.largo = static_cast<std::uint32_t>(anchos[i]);
        tabla.estructura.Agregar(columnas[i], tipo);
    }
    tabla.estructura.Cerrar();
    BuscarCliente(tabla);
    return tabla;
}

TablaCargada CargarEnNueva(BaseDePractica& base, std::string_view nombre, const std::vector<std::string>& columnas,
                           std::string_view texto) {
    base.CrearTabla(DefinirPorAnchos(nombre, columnas, texto));
    const auto& tabla = *base.BuscarTabla(nombre);
    const auto insertar = base.LaConexion().Preparar(EscribirInsercion(tabla, "main." + Entrecomillado(nombre)));
    TablaCargada cargada;
    CadaLinea(texto, columnas.size(), [&](const LineaCsv& linea) {
        for (std::size_t i = 0; i < columnas.size(); ++i) {
            const std::string_view valor = linea.campos[i];
            insertar->LigarTexto(static_cast<int>(i), SinBlancosDetras(valor));
        }
        insertar->Ejecutar();
        ++cargada.filas;
        if (tabla.cliente >= 0 && linea.campos[static_cast<std::size_t>(tabla.cliente)] != base.Cliente()) ++cargada.deOtroCliente;
    });
    return cargada;
}

TablaCargada CargarEnTabla(BaseDePractica& base, const DefinicionDeTabla& tabla, const std::vector<std::string>& columnas,
                           std::string_view texto) {
    for (const auto& columna : columnas) {
        if (tabla.Columna(columna) < 0) Fallar(1, "the table " + tabla.estructura.nombre + " has no column " + columna);
    }
    TablaCargada cargada;
    CadaLinea(texto, columnas.size(), [&](const LineaCsv& linea) {
        const auto fila = LeerFila(tabla, columnas, linea.campos, base.Cliente());
        if (!fila.motivo.empty()) Fallar(linea.linea, fila.motivo);
        if (!base.PonerFilaEn(tabla, fila.valores)) Fallar(linea.linea, "there is a row with this key already");
        ++cargada.filas;
    });
    return cargada;
}

}  // namespace

TablaCargada CargarTabla(BaseDePractica& base, std::string_view nombre, std::string_view texto) {
    if (!EsNombreDeTabla(nombre)) throw FalloDeEjecucion("\"" + std::string(nombre) + "\" is no name of a table");
    LectorCsv lector(texto);
    const auto columnas = LeerCabeza(lector);
    const auto* const tabla = base.BuscarTabla(nombre);
    const bool conClave = tabla != nullptr && tabla->clase == DefinicionDeTabla::Clase::DeErrores;
    try {
        base.EmpezarUnidad();
        const auto cargada = conClave ? CargarEnTabla(base, *tabla, columnas, texto) : CargarEnNueva(base, nombre, columnas, texto);
        base.TerminarUnidad();
        return cargada;
    } catch (...) {
        base.AbandonarUnidad();
        throw;
    }
}

TablaCargada CargarTablaDeArchivo(BaseDePractica& base, std::string_view nombre, const std::filesystem::path& archivo) {
    const std::string texto = LeerArchivo(archivo, limiteDeSesion);
    try {
        return CargarTabla(base, nombre, texto);
    } catch (const FalloDeArchivo&) {
        throw;
    } catch (const FalloDeEjecucion& fallo) {
        throw FalloDeArchivo(AUtf8(fallo.what()), archivo);
    }
}

void EscribirTabla(BaseDePractica& base, std::string_view nombre, const std::function<void(std::string_view)>& linea) {
    const auto* const tabla = base.BuscarTabla(nombre);
    if (tabla == nullptr) throw FalloDeEjecucion("the practice system has no table " + std::string(nombre));
    std::string texto;
    for (const auto& columna : tabla->estructura.componentes) {
        if (!texto.empty()) texto += ',';
        texto += CampoCsv(columna.nombre);
    }
    linea(texto + '\n');
    abap::ConsultaDeBase consulta;
    consulta.tabla = nombre;
    consulta.delCliente = false;
    const auto filas = base.Seleccionar(consulta);
    std::vector<abap::ValorDeBase> fila;
    while (filas->Siguiente(fila)) {
        texto.clear();
        for (std::size_t i = 0; i < fila.size(); ++i) {
            if (i > 0) texto += ',';
            texto += CampoCsv(TextoDeValor(fila[i]));
        }
        linea(texto + '\n');
    }
}

}  // namespace qor
