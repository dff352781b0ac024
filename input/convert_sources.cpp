#include "input/convert_sources.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/failure.h"
#include "base/text.h"
#include "input/csv_reader.h"
#include "input/xlsx_reader.h"

namespace qor {

namespace {

const ClaseDeRegistro& ClaseEn(const DisenoDeEntrada& diseno, int lugar) {
    return diseno.Clases()[static_cast<std::size_t>(lugar)];
}

// A hidden sheet is taken where the user names it alone.
const LibroXlsx::Hoja& BuscarHoja(const LibroXlsx& libro, const DisenoDeEntrada& diseno, const Tablas& tablas, int clase) {
    const auto lugar = static_cast<std::size_t>(clase);
    const bool dicha = lugar < tablas.hojas.size();
    const std::string nombre = dicha ? tablas.hojas[lugar] : NombreDeHoja(ClaseEn(diseno, clase));
    const auto& hojas = libro.Hojas();
    auto hoja = std::find_if(hojas.begin(), hojas.end(), [&nombre](const auto& h) { return h.nombre == nombre; });
    if (hoja == hojas.end()) {
        hoja = std::find_if(hojas.begin(), hojas.end(), [&nombre](const auto& h) {
            return IgualesSinCaja(DesdeUtf8ConFaltas(h.nombre), DesdeUtf8ConFaltas(nombre));
        });
    }
    if (hoja != hojas.end() && (dicha || !hoja->oculta)) return *hoja;
    const bool estaOculta = hoja != hojas.end();
    if (!dicha && diseno.Clases().size() == 1) {
        hoja = std::find_if(hojas.begin(), hojas.end(), [](const auto& h) { return !h.oculta; });
        if (hoja != hojas.end()) return *hoja;
        throw FalloDeArchivo("All sheets of the workbook are hidden, and none of them is named", tablas.archivos.at(0));
    }
    if (estaOculta) {
        throw FalloDeArchivo("The sheet " + nombre + " of the workbook is hidden, and hidden sheets are read only by their names",
                             tablas.archivos.at(0));
    }
    throw FalloDeArchivo("The workbook has no sheet " + nombre, tablas.archivos.at(0));
}

}  // namespace

std::vector<std::string> BuscarHojas(const DisenoDeEntrada& diseno, const Tablas& tablas) {
    const LibroXlsx libro(tablas.archivos.at(0));
    std::vector<std::string> nombres;
    nombres.reserve(diseno.Clases().size());
    for (int clase = 0; clase < static_cast<int>(diseno.Clases().size()); ++clase) {
        const auto& nombre = BuscarHoja(libro, diseno, tablas, clase).nombre;
        if (std::find(nombres.begin(), nombres.end(), nombre) != nombres.end()) {
            throw FalloDeArchivo("The sheet " + nombre + " of the workbook would be read for two kinds of records",
                                 tablas.archivos.at(0));
        }
        nombres.push_back(nombre);
    }
    return nombres;
}

FuentesDeTablas::FuentesDeTablas(const DisenoDeEntrada& diseno, const Tablas& tablas, const OpcionesDeConversion& opciones)
    : diseno_(diseno), tablas_(tablas), opciones_(opciones) {
    if (tablas_.forma == FormaDeTabla::Xlsx) libro_ = std::make_unique<LibroXlsx>(tablas_.archivos.at(0));
}

FuentesDeTablas::~FuentesDeTablas() = default;

std::unique_ptr<FuenteDeFilas> FuentesDeTablas::Abrir(int clase) {
    if (libro_) return libro_->Abrir(BuscarHoja(*libro_, diseno_, tablas_, clase));
    const auto& ruta = tablas_.archivos.at(static_cast<std::size_t>(clase));
    return std::make_unique<LectorDeCsv>(ruta, Separador(clase, ruta));
}

char FuentesDeTablas::Separador(int clase, const std::filesystem::path& ruta) const {
    if (tablas_.forma == FormaDeTabla::Tabuladores) return '\t';
    if (opciones_.separador != 0) return opciones_.separador;
    const auto& registro = ClaseEn(diseno_, clase);
    const auto titulos = Titulos(registro, ConNumero(diseno_, registro));
    if (titulos.size() == 1 && opciones_.filaDeTitulos == 0) return ';';  // either will do
    const char hallado =
        opciones_.filaDeTitulos > 0 ? SeparadorDe(ruta, static_cast<std::uint64_t>(opciones_.filaDeTitulos), titulos) : char{0};
    if (hallado == 0) throw FalloDeArchivo("The headings don't tell whether a comma or a semicolon separates the values", ruta);
    return hallado;
}

LecturaRepetida::LecturaRepetida(const std::vector<std::filesystem::path>& archivos) : archivos_(archivos) {
    for (const auto& archivo : archivos_) identidades_.push_back(Identidad(archivo));
}

void LecturaRepetida::ExigirIguales() const {
    for (std::size_t i = 0; i < archivos_.size(); ++i) {
        if (Identidad(archivos_[i]) != identidades_[i]) throw FalloDeArchivo(CausaDeFallo::Cambiado, archivos_[i]);
    }
}

}  // namespace qor
