#include <algorithm>
#include <deque>
#include <memory>
#include <utility>

#include "base/failure.h"
#include "base/new_file.h"
#include "base/text.h"
#include "input/check_line.h"
#include "input/check_relation.h"
#include "input/convert.h"
#include "input/convert_rows.h"
#include "input/convert_sources.h"
#include "input/record_lots.h"

namespace qor {

namespace {

// The line of a record, without its end.
void PonerLinea(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase, const std::vector<std::string>& valores,
                std::string& linea) {
    linea = clase.identificador;
    for (std::size_t i = 0; i < clase.campos.size(); ++i) {
        if (diseno.PorTabuladores()) {
            if (i > 0) linea += '\t';
            linea += valores[i];
            continue;
        }
        linea.resize(clase.campos[i].columna, ' ');
        linea += SinBlancosDetras(valores[i]);
    }
    if (!diseno.PorTabuladores()) linea.erase(std::max(linea.find_last_not_of(' ') + 1, clase.identificador.size()));
}

// A pass over the tables of all files.
class PasadaDeTablas {
public:
    PasadaDeTablas(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases, const ReglasDeValores& reglas,
                   FuentesDeTablas& fuentes, const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente)
        : diseno_(diseno), clases_(clases), reglas_(reglas), fuentes_(fuentes), opciones_(opciones), oyente_(oyente) {}

    // Calls `hacer` with the place of the file and of the kind, the record and its line, in the order of the lines.
    template <typename Hacer>
    void Correr(Hacer hacer) {
        for (std::size_t archivo = 0; archivo < diseno_.Archivos().size(); ++archivo) {
            std::deque<Fuente> tablas;
            for (const int clase : diseno_.Archivos()[archivo].clases) {
                const auto& registro = diseno_.Clases()[static_cast<std::size_t>(clase)];
                auto& tabla =
                    tablas.emplace_back(clase, LectorDeTabla(fuentes_.Abrir(clase), registro,
                                                             CamposDeTabla(diseno_, registro, clases_, reglas_, opciones_.celdas),
                                                             ConNumero(diseno_, registro), clase, opciones_, oyente_));
                tabla.hay = tabla.lector.Siguiente(tabla.registro);
            }
            for (Fuente* tabla = BuscarSiguiente(tablas); tabla != nullptr; tabla = BuscarSiguiente(tablas)) {
                PonerLinea(diseno_, diseno_.Clases()[static_cast<std::size_t>(tabla->clase)], tabla->registro.valores, linea_);
                hacer(static_cast<int>(archivo), tabla->clase, tabla->registro, linea_);
                tabla->hay = tabla->lector.Siguiente(tabla->registro);
            }
            entera_ = entera_ && std::all_of(tablas.begin(), tablas.end(), [](const auto& tabla) { return tabla.lector.Entera(); });
        }
    }

    // Whatever is wrong is wrong with single records.
    bool Entera() const { return entera_; }

private:
    struct Fuente {
        Fuente(int cual, LectorDeTabla&& filas) : clase(cual), lector(std::move(filas)) {}
        int clase;
        LectorDeTabla lector;
        RegistroDeTabla registro;
        bool hay = false;
    };

    static Fuente* BuscarSiguiente(std::deque<Fuente>& tablas) {
        Fuente* siguiente = nullptr;
        for (auto& tabla : tablas) {
            const bool antes = tabla.hay && (siguiente == nullptr || tabla.registro.numero < siguiente->registro.numero);
            if (antes) siguiente = &tabla;
        }
        return siguiente;
    }

    const DisenoDeEntrada& diseno_;
    const ClasesDeCampos& clases_;
    const ReglasDeValores& reglas_;
    FuentesDeTablas& fuentes_;
    const OpcionesDeConversion& opciones_;
    const OyenteDeConversion& oyente_;
    std::string linea_;
    bool entera_ = true;
};

}  // namespace

Conversion ConvertirALayout(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases, const ReglasDeValores& reglas,
                            const Tablas& tablas, const std::vector<std::filesystem::path>& archivos,
                            const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente) {
    Conversion conversion;
    conversion.registros.resize(diseno.Clases().size());
    const OyenteDeConversion contado = [&](const HallazgoDeDatos& hallazgo) {
        ++conversion.hallazgos;
        oyente(hallazgo);
    };
    FuentesDeTablas fuentes(diseno, tablas, opciones);
    std::deque<ArchivoNuevo> salidas;
    for (std::size_t i = 0; i < diseno.Archivos().size(); ++i) salidas.emplace_back(archivos.at(i));
    const auto escribir = [&](int archivo, int clase, bool bien, const std::string& linea) {
        ++(bien ? conversion.registros[static_cast<std::size_t>(clase)] : conversion.fuera);
        if (!bien) return;
        auto& salida = salidas[static_cast<std::size_t>(archivo)];
        salida.Escribir(linea);
        salida.Escribir(opciones.finDeLinea);
    };

    PasadaDeTablas pasada(diseno, clases, reglas, fuentes, opciones, contado);
    if (!opciones.dejarFuera) {
        pasada.Correr([&](int archivo, int clase, const RegistroDeTabla& registro, const std::string& linea) {
            escribir(archivo, clase, registro.bien, linea);
        });
        if (conversion.hallazgos > 0) return conversion;
    } else {
        // Which records are left out is known once all of them were read.
        const RevisorDeLineas revisor(diseno, reglas);
        RelacionDeRegistros relacion(revisor, diseno.Archivos().size());
        LotesDeRegistros lotes(relacion, diseno.Archivos().size(), false);
        std::vector<HallazgoDeDatos> deRelacion;
        std::vector<std::uint64_t> numeros(diseno.Archivos().size());
        const LecturaRepetida lectura(tablas.archivos);
        pasada.Correr([&](int archivo, int clase, const RegistroDeTabla& registro, const std::string& linea) {
            deRelacion.clear();
            const auto numero = ++numeros[static_cast<std::size_t>(archivo)];
            lotes.Agregar(archivo, relacion.Tomar(archivo, clase, numero, linea, deRelacion), !registro.bien);
        });
        if (!pasada.Entera()) return conversion;
        if (conversion.hallazgos > 0) ExigirComparables(relacion, "records can't be left out");
        lotes.Terminar();
        numeros.assign(numeros.size(), 0);
        const OyenteDeConversion nadie = [](const HallazgoDeDatos&) {};
        PasadaDeTablas(diseno, clases, reglas, fuentes, opciones, nadie)
            .Correr([&](int archivo, int clase, const RegistroDeTabla&, const std::string& linea) {
                escribir(archivo, clase, !lotes.Malo(archivo, numeros[static_cast<std::size_t>(archivo)]++), linea);
            });
        lectura.ExigirIguales();
    }
    for (auto& salida : salidas) salida.LlevarAlDisco();
    for (auto& salida : salidas) salida.PonerEnSuLugar();
    conversion.escrita = true;
    return conversion;
}

}  // namespace qor
