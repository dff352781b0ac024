#include "input/convert.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "base/code_page.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/new_file.h"
#include "base/text.h"
#include "input/check_line.h"
#include "input/check_relation.h"
#include "input/convert_lines.h"
#include "input/convert_rows.h"
#include "input/convert_tables.h"
#include "input/csv_reader.h"
#include "input/record_units.h"
#include "input/xlsx_reader.h"

namespace qor {

namespace {

const ClaseDeRegistro& ClaseEn(const DisenoDeEntrada& diseno, int lugar) {
    return diseno.Clases()[static_cast<std::size_t>(lugar)];
}

// Gives findings on, and counts them.
class OyenteQueCuenta {
public:
    OyenteQueCuenta(const OyenteDeConversion& oyente, std::uint64_t& cuenta)
        : oyente_([&oyente, &cuenta](const HallazgoDeDatos& hallazgo) {
              ++cuenta;
              oyente(hallazgo);
          }) {}
    const OyenteDeConversion& Oyente() const { return oyente_; }

private:
    OyenteDeConversion oyente_;
};

const LibroXlsx::Hoja& BuscarHoja(const LibroXlsx& libro, const DisenoDeEntrada& diseno, const Tablas& tablas, int clase) {
    const auto lugar = static_cast<std::size_t>(clase);
    const bool dicha = lugar < tablas.hojas.size();
    const std::string nombre = dicha ? tablas.hojas[lugar] : NombreDeHoja(ClaseEn(diseno, clase));
    const auto& hojas = libro.Hojas();
    auto hoja = std::find_if(hojas.begin(), hojas.end(), [&nombre](const auto& h) { return h.nombre == nombre; });
    if (hoja != hojas.end()) return *hoja;
    hoja = std::find_if(hojas.begin(), hojas.end(), [&nombre](const auto& h) {
        return IgualesSinCaja(DesdeUtf8ConFaltas(h.nombre), DesdeUtf8ConFaltas(nombre));
    });
    if (hoja != hojas.end()) return *hoja;
    if (!dicha && diseno.Clases().size() == 1) {
        hoja = std::find_if(hojas.begin(), hojas.end(), [](const auto& h) { return !h.oculta; });
        if (hoja != hojas.end()) return *hoja;
        throw FalloDeArchivo("All sheets of the workbook are hidden; show one, or name one with --sheet", tablas.archivos.at(0));
    }
    throw FalloDeArchivo("The workbook has no sheet " + nombre, tablas.archivos.at(0));
}

// The tables of an input, one for each kind of records.
class FuentesDeTablas {
public:
    FuentesDeTablas(const DisenoDeEntrada& diseno, const Tablas& tablas, const OpcionesDeConversion& opciones)
        : diseno_(diseno), tablas_(tablas), opciones_(opciones) {
        if (tablas_.forma == FormaDeTabla::Xlsx) libro_ = std::make_unique<LibroXlsx>(tablas_.archivos.at(0));
    }

    std::unique_ptr<FuenteDeFilas> Abrir(int clase) {
        if (libro_) return libro_->Abrir(BuscarHoja(*libro_, diseno_, tablas_, clase));
        const auto& ruta = tablas_.archivos.at(static_cast<std::size_t>(clase));
        return std::make_unique<LectorDeCsv>(ruta, Separador(clase, ruta));
    }

private:
    char Separador(int clase, const std::filesystem::path& ruta) const {
        if (tablas_.forma == FormaDeTabla::Tabuladores) return '\t';
        if (opciones_.separador != 0) return opciones_.separador;
        const auto& registro = ClaseEn(diseno_, clase);
        const auto titulos = Titulos(registro, ConNumero(diseno_, registro));
        const char hallado =
            opciones_.filaDeTitulos > 0 ? SeparadorDe(ruta, static_cast<std::uint64_t>(opciones_.filaDeTitulos), titulos) : char{0};
        if (hallado == 0 && opciones_.filaDeTitulos == 0) {
            throw FalloDeEjecucion("without headings --separator has to tell whether a comma or a semicolon separates the values");
        }
        if (hallado == 0) throw FalloDeArchivo("The headings don't tell whether a comma or a semicolon separates the values", ruta);
        return hallado;
    }

    const DisenoDeEntrada& diseno_;
    const Tablas& tablas_;
    const OpcionesDeConversion& opciones_;
    std::unique_ptr<LibroXlsx> libro_;
};

// Writes one file of a layout from the tables of its kinds.
class EscrituraDeArchivo {
public:
    EscrituraDeArchivo(const DisenoDeEntrada& diseno, const std::filesystem::path& ruta, const OpcionesDeConversion& opciones,
                       Conversion& conversion)
        : diseno_(diseno), opciones_(opciones), conversion_(conversion), archivo_(ruta), unidad_(diseno.Clases().size()) {}

    void Agregar(int clase, LectorDeTabla lector) {
        auto& fuente = fuentes_.emplace_back(Fuente{clase, std::move(lector), {}, false});
        fuente.hay = fuente.lector.Siguiente(fuente.registro);
    }

    // `alEscribir` gets kind and line of each record, and whether it has findings; `esMalo` tells of a record, from 0, that it is
    // left out with another one.
    void Escribir(const std::function<void(int, std::string_view, bool)>& alEscribir,
                  const std::function<bool(std::uint64_t)>& esMalo) {
        std::uint64_t registro = 0;
        for (Fuente* siguiente = BuscarSiguiente(); siguiente != nullptr; siguiente = BuscarSiguiente()) {
            EscribirRegistro(*siguiente, esMalo(registro++));
            alEscribir(siguiente->clase, linea_, siguiente->registro.bien);
            siguiente->hay = siguiente->lector.Siguiente(siguiente->registro);
        }
        CerrarUnidad();
    }

    // All numbers of the column "#" can be followed.
    bool ConOrden() const {
        return std::all_of(fuentes_.begin(), fuentes_.end(), [](const Fuente& fuente) { return fuente.lector.ConOrden(); });
    }

    void LlevarAlDisco() { archivo_.LlevarAlDisco(); }
    void PonerEnSuLugar() { archivo_.PonerEnSuLugar(); }

private:
    struct Fuente {
        int clase;
        LectorDeTabla lector;
        RegistroDeTabla registro;
        bool hay;
    };

    Fuente* BuscarSiguiente() {
        Fuente* siguiente = nullptr;
        for (auto& fuente : fuentes_) {
            const bool antes = fuente.hay && (siguiente == nullptr || fuente.registro.numero < siguiente->registro.numero);
            if (antes) siguiente = &fuente;
        }
        return siguiente;
    }

    void EscribirRegistro(const Fuente& fuente, bool mala) {
        const auto& clase = ClaseEn(diseno_, fuente.clase);
        if (clase.grupo == 0 || fuentes_.size() == 1) CerrarUnidad();
        ++unidad_[static_cast<std::size_t>(fuente.clase)];
        unidadMala_ = unidadMala_ || mala || !fuente.registro.bien;
        PonerLinea(diseno_, clase, fuente.registro.valores, linea_);
        if (!fuente.registro.bien) return;
        lineas_.append(linea_).append(opciones_.finDeLinea);
        if (opciones_.dejarFuera) return;
        archivo_.Escribir(lineas_);
        lineas_.clear();
    }

    // A main record and what belongs to it go together.
    void CerrarUnidad() {
        for (std::size_t i = 0; i < unidad_.size(); ++i) {
            (unidadMala_ ? conversion_.fuera : conversion_.registros[i]) += unidad_[i];
            unidad_[i] = 0;
        }
        if (!unidadMala_) archivo_.Escribir(lineas_);
        lineas_.clear();
        unidadMala_ = false;
    }

    const DisenoDeEntrada& diseno_;
    const OpcionesDeConversion& opciones_;
    Conversion& conversion_;
    ArchivoNuevo archivo_;
    std::vector<Fuente> fuentes_;
    std::string linea_;
    std::string lineas_;                 // of the unit, while it may be left out
    std::vector<std::uint64_t> unidad_;  // its records of each kind
    bool unidadMala_ = false;
};

// Records can be left out only where it is known what goes with them.
void ExigirUnion(const RelacionDeRegistros&) {}

Conversion Vacia(const DisenoDeEntrada& diseno) {
    Conversion conversion;
    conversion.registros.resize(diseno.Clases().size());
    return conversion;
}

}  // namespace

std::string NombreDeHoja(const ClaseDeRegistro& clase) {
    return clase.grupo == 0 ? "FILE" : "SLOOP_" + std::to_string(clase.grupo);
}

bool ConNumero(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase) {
    return std::any_of(diseno.Archivos().begin(), diseno.Archivos().end(), [&](const ArchivoDeEntrada& archivo) {
        return archivo.clases.size() > 1 && std::any_of(archivo.clases.begin(), archivo.clases.end(),
                                                        [&](int lugar) { return &ClaseEn(diseno, lugar) == &clase; });
    });
}

std::vector<std::string> Titulos(const ClaseDeRegistro& clase, bool conNumero) {
    std::vector<std::string> titulos;
    if (conNumero) titulos.emplace_back(tituloDeNumero);
    for (const auto& campo : clase.campos) titulos.push_back(campo.nombre);
    return titulos;
}

std::vector<std::string> BuscarHojas(const DisenoDeEntrada& diseno, const Tablas& tablas) {
    const LibroXlsx libro(tablas.archivos.at(0));
    std::vector<std::string> nombres;
    nombres.reserve(diseno.Clases().size());
    for (int clase = 0; clase < static_cast<int>(diseno.Clases().size()); ++clase) {
        nombres.push_back(BuscarHoja(libro, diseno, tablas, clase).nombre);
    }
    return nombres;
}

Conversion ConvertirALayout(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases, const ReglasDeValores& reglas,
                            const Tablas& tablas, const std::vector<std::filesystem::path>& archivos,
                            const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente) {
    auto conversion = Vacia(diseno);
    const OyenteQueCuenta cuenta(oyente, conversion.hallazgos);
    FuentesDeTablas fuentes(diseno, tablas, opciones);
    std::vector<std::unique_ptr<EscrituraDeArchivo>> salidas;
    const auto pasar = [&](const OyenteDeConversion& alHallar, const auto& alEscribir, const auto& esMalo) {
        salidas.clear();
        for (std::size_t i = 0; i < diseno.Archivos().size(); ++i) {
            salidas.push_back(std::make_unique<EscrituraDeArchivo>(diseno, archivos.at(i), opciones, conversion));
            for (const int lugar : diseno.Archivos()[i].clases) {
                const auto& clase = ClaseEn(diseno, lugar);
                salidas.back()->Agregar(
                    lugar, LectorDeTabla(fuentes.Abrir(lugar), clase, ConversoresDe(diseno, clase, clases, opciones.celdas), reglas,
                                         ConNumero(diseno, clase), lugar, opciones, alHallar));
            }
            salidas.back()->Escribir([&](int clase, std::string_view linea, bool bien) { alEscribir(i, clase, linea, bien); },
                                     [&](std::uint64_t registro) { return esMalo(i, registro); });
        }
    };
    const ReglasDeValores sinReglas;
    const RevisorDeLineas revisor(diseno, sinReglas);
    RelacionDeRegistros relacion(revisor, diseno.Archivos().size());
    // In the one file it is the numbers of the rows that tell what belongs together.
    const bool porClaves = opciones.dejarFuera && diseno.Archivos().size() > 1;
    UnidadesDeRegistros unidades(relacion, diseno.Archivos().size());
    std::vector<HallazgoDeDatos> deLaRelacion;
    std::uint64_t linea = 0;
    pasar(
        cuenta.Oyente(),
        [&](std::size_t archivo, int clase, std::string_view texto, bool bien) {
            if (!porClaves) return;
            unidades.Tomar(archivo, relacion.Tomar(static_cast<int>(archivo), clase, ++linea, texto, deLaRelacion), !bien);
            deLaRelacion.clear();
        },
        [](std::size_t, std::uint64_t) { return false; });
    const bool conOrden = std::all_of(salidas.begin(), salidas.end(), [](const auto& salida) { return salida->ConOrden(); });
    if (conversion.hallazgos > 0 && !(opciones.dejarFuera && conOrden)) return conversion;
    if (conversion.hallazgos > 0 && porClaves) {
        ExigirUnion(relacion);
        unidades.Terminar();
        const auto hallazgos = conversion.hallazgos;
        conversion = Vacia(diseno);
        conversion.hallazgos = hallazgos;
        pasar([](const HallazgoDeDatos&) {}, [](std::size_t, int, std::string_view, bool) {},
              [&](std::size_t archivo, std::uint64_t registro) { return unidades.Malas(archivo).at(registro); });
    }
    for (const auto& salida : salidas) salida->LlevarAlDisco();
    for (const auto& salida : salidas) salida->PonerEnSuLugar();
    conversion.escrita = true;
    return conversion;
}

Conversion ConvertirATablas(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases,
                            const std::vector<std::filesystem::path>& archivos, const Tablas& tablas,
                            const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente) {
    auto conversion = Vacia(diseno);
    const OyenteQueCuenta cuenta(oyente, conversion.hallazgos);
    const auto salida = EscritorDeTablas::Hacer(diseno, clases, archivos, tablas, opciones);
    const ReglasDeValores sinReglas;
    const RevisorDeLineas revisor(diseno, sinReglas);
    RelacionDeRegistros relacion(revisor, archivos.size());
    UnidadesDeRegistros unidades(relacion, archivos.size());
    std::vector<std::optional<IdentidadDeArchivo>> identidades;
    std::vector<HallazgoDeDatos> deLaRelacion;
    std::vector<std::string_view> valores;
    bool legibles = true;
    int clase = -1;
    for (std::size_t i = 0; i < diseno.Archivos().size(); ++i) {
        identidades.push_back(Identidad(archivos.at(i)));
        LectorDeLayout lector(diseno, static_cast<int>(i), archivos.at(i), cuenta.Oyente());
        legibles = legibles && lector.Legible();
        while (lector.Siguiente(clase, valores)) {
            std::size_t campo = 0;
            std::string motivo;
            bool bien = clase >= 0;
            if (bien && !salida->Cabe(clase, valores, campo, motivo)) {
                lector.Decir(HallazgoDeEntrada::CeldaSinLugar, &ClaseEn(diseno, clase), campo, valores[campo], motivo);
                bien = false;
            }
            const auto suya = revisor.ClaseDe(static_cast<int>(i), lector.Texto());
            const auto unidad = relacion.Tomar(static_cast<int>(i), suya, lector.Linea(), lector.Texto(), deLaRelacion);
            deLaRelacion.clear();
            unidades.Tomar(i, unidad, !bien);
            if (bien) ++conversion.registros[static_cast<std::size_t>(clase)];
        }
    }
    if (conversion.hallazgos > 0 && !(opciones.dejarFuera && legibles)) return conversion;
    if (conversion.hallazgos > 0) {
        ExigirUnion(relacion);
        unidades.Terminar();
    }
    std::fill(conversion.registros.begin(), conversion.registros.end(), 0);
    const OyenteDeConversion nadie = [](const HallazgoDeDatos&) {};
    for (std::size_t i = 0; i < diseno.Archivos().size(); ++i) {
        LectorDeLayout lector(diseno, static_cast<int>(i), archivos[i], nadie);
        const auto& malas = unidades.Malas(i);
        for (std::size_t registro = 0; registro < malas.size() && lector.Siguiente(clase, valores); ++registro) {
            if (malas[registro]) {
                ++conversion.fuera;
            } else if (clase >= 0) {
                salida->Fila(clase, lector.Linea(), valores);
                ++conversion.registros[static_cast<std::size_t>(clase)];
            }
        }
        if (Identidad(archivos[i]) != identidades[i]) throw FalloDeArchivo(motivoCambiado, archivos[i]);
    }
    salida->PonerEnSuLugar();
    conversion.escrita = true;
    return conversion;
}

}  // namespace qor
