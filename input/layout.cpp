#include "input/layout.h"

#include <algorithm>

#include "base/files.h"
#include "base/text.h"
#include "model/cells.h"

namespace qor {

namespace {

// Some conversion of the specification, value pairs aside, has the name of the field in it.
bool EsCambiante(const Especificacion& especificacion, const std::string& nombre) {
    const auto buscado = Mayusculas(nombre);
    return std::any_of(especificacion.TablaArchivo.begin(), especificacion.TablaArchivo.end(), [&](const auto& fila) {
        if (EstaEnBlanco(fila.conversion)) return false;
        const auto lineas = PartirEnLineas(fila.conversion);
        return std::any_of(lineas.begin(), lineas.end(), [&](std::string_view linea) {
            return !linea.starts_with('*') && !TienePares(linea) && Contiene(Mayusculas(linea), buscado);
        });
    });
}

ClaseDeRegistro ClaseDe(const Especificacion& especificacion, const DisenoDeRegistros& diseno, int grupo) {
    ClaseDeRegistro clase;
    clase.grupo = grupo;
    clase.identificador = diseno.Identificador(grupo);
    std::size_t columna = clase.identificador.size();
    const int filas = especificacion.FilasArchivo();
    for (int fila = 0; fila < filas; ++fila) {
        if (!diseno.Pertenece(fila, grupo)) continue;
        const std::string nombre(Recortar(especificacion.TablaArchivo[static_cast<std::size_t>(fila)].campo));
        const auto ancho = diseno.SitioDe(fila, grupo).ancho;
        const bool clave = grupo > 0 && diseno.EsClave(fila, grupo);
        clase.campos.push_back({fila, nombre, columna, ancho, clave, clave && EsCambiante(especificacion, nombre)});
        columna += ancho;
    }
    clase.largo = columna;
    return clase;
}

}  // namespace

int ClaseDeRegistro::BuscarFila(int fila) const {
    const auto lugar = std::find_if(campos.begin(), campos.end(), [fila](const auto& campo) { return campo.fila == fila; });
    return lugar == campos.end() ? -1 : static_cast<int>(lugar - campos.begin());
}

DisenoDeEntrada::DisenoDeEntrada(const Especificacion& especificacion, const Opciones& opciones) {
    const DisenoDeRegistros diseno(especificacion, opciones);
    hayArchivo_ = diseno.HayArchivo();
    if (!hayArchivo_) return;
    porTabuladores_ = diseno.PorTabuladores();
    archivoUnico_ = diseno.ArchivoUnico();
    const int grupos = ContarStepLoops(especificacion);
    for (int grupo = 0; grupo <= grupos; ++grupo) clases_.push_back(ClaseDe(especificacion, diseno, grupo));
    // Files bear the names of the report's parameters, without the prefixes of naming conventions.
    for (int clase = 0; clase <= grupos; ++clase) {
        if (clase == 0) archivos_.push_back({"FILE", {}});
        if (clase > 0 && !archivoUnico_) archivos_.push_back({"SLOOP_" + std::to_string(clase), {}});
        archivos_.back().clases.push_back(clase);
    }
}

int DisenoDeEntrada::ClaseDeLinea(int archivo, std::string_view linea) const {
    const auto& clases = archivos_[static_cast<std::size_t>(archivo)].clases;
    if (!archivoUnico_) return clases.front();
    for (const int clase : clases) {
        if (TieneIdentificador(linea, clases_[static_cast<std::size_t>(clase)].identificador)) return clase;
    }
    return -1;
}

}  // namespace qor
