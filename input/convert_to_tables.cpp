#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

#include "base/text.h"
#include "input/check.h"
#include "input/check_line.h"
#include "input/convert.h"
#include "input/convert_sources.h"
#include "input/convert_tables.h"
#include "input/record_lots.h"

namespace qor {

namespace {

// What a finding is about.
enum class Alcance { Nada, Linea, Archivo };

Alcance AlcanceDe(HallazgoDeEntrada clase) {
    switch (clase) {
        case HallazgoDeEntrada::Utf8:
        case HallazgoDeEntrada::MarcaDeOrden: return Alcance::Archivo;
        // How records belong together.
        case HallazgoDeEntrada::SinPrincipal:
        case HallazgoDeEntrada::SinPartidas:
        case HallazgoDeEntrada::ClaveDoble: return Alcance::Nada;
        default: return EsAviso(clase) ? Alcance::Nada : Alcance::Linea;
    }
}

// A pass over the files of a layout, as the check reads them.
class PasadaDeArchivos : public OyenteDeRevision {
public:
    using Valores = std::vector<std::string_view>;
    // Gets each record and each bad line, the values of a good record, and whether it is good.
    using Receptor = std::function<void(const LineaRevisada&, const Valores&, bool)>;

    PasadaDeArchivos(const RevisorDeLineas& revisor, EscritorDeTablas& salida, const OyenteDeConversion& oyente, Receptor receptor)
        : revisor_(revisor), salida_(salida), oyente_(oyente), receptor_(std::move(receptor)) {}

    bool Hallado(const HallazgoDeDatos& hallazgo) override {
        const auto alcance = AlcanceDe(hallazgo.clase);
        if (alcance == Alcance::Nada) return true;
        entera_ = entera_ && alcance == Alcance::Linea;
        lineaMala_ = true;
        oyente_(hallazgo);
        return true;
    }

    bool Leida(const LineaRevisada& linea) override {
        const bool bien = !std::exchange(lineaMala_, false);
        // The report passes over a blank line of the one file, which is neither.
        if (linea.clase >= 0 || !bien) receptor_(linea, valores_, bien && Cabe(linea));
        return true;
    }

    // Whatever is wrong is wrong with single lines.
    bool Entera() const { return entera_; }

private:
    bool Cabe(const LineaRevisada& linea) {
        const auto& diseno = revisor_.Diseno();
        revisor_.Partir(linea.clase, linea.texto, valores_);
        if (!diseno.PorTabuladores()) {
            for (auto& valor : valores_) valor = SinBlancosDetras(valor);
        }
        HallazgoDeDatos hallazgo;
        hallazgo.clase = HallazgoDeEntrada::CeldaSinLugar;
        hallazgo.archivo = linea.archivo;
        hallazgo.linea = linea.numero;
        std::size_t campo = 0;
        if (!diseno.ArchivoUnico() && std::all_of(valores_.begin(), valores_.end(), EstaEnBlanco)) {
            hallazgo.texto = "the line has no values, and a row without values is no record";
        } else if (salida_.Cabe(linea.clase, valores_, campo, hallazgo.texto)) {
            return true;
        } else {
            revisor_.SituarEnCampo(hallazgo, linea.clase, linea.texto, campo);
        }
        oyente_(hallazgo);
        return false;
    }

    const RevisorDeLineas& revisor_;
    EscritorDeTablas& salida_;
    const OyenteDeConversion& oyente_;
    Receptor receptor_;
    Valores valores_;
    bool lineaMala_ = false;
    bool entera_ = true;
};

}  // namespace

Conversion ConvertirATablas(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases, const ReglasDeValores& reglas,
                            const std::vector<std::filesystem::path>& archivos, const Tablas& tablas,
                            const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente) {
    Conversion conversion;
    conversion.registros.resize(diseno.Clases().size());
    const OyenteDeConversion contado = [&](const HallazgoDeDatos& hallazgo) {
        ++conversion.hallazgos;
        oyente(hallazgo);
    };
    const RevisorDeLineas revisor(diseno, reglas);
    const auto salida = EscritorDeTablas::Hacer(diseno, clases, archivos, tablas, opciones);
    const auto escribir = [&](const LineaRevisada& linea, const PasadaDeArchivos::Valores& valores, bool bien) {
        ++(bien ? conversion.registros[static_cast<std::size_t>(linea.clase)] : conversion.fuera);
        if (bien) salida->Fila(linea.clase, linea.numero, valores);
    };

    RevisionDeArchivos revision(diseno, reglas, archivos);
    if (!opciones.dejarFuera) {
        PasadaDeArchivos pasada(revisor, *salida, contado, escribir);
        revision.Correr(pasada);
        if (conversion.hallazgos > 0) return conversion;
    } else {
        // Which records are left out is known once all of them were read.
        const LecturaRepetida lectura(archivos);
        LotesDeRegistros lotes(revision.Relacion(), archivos.size(), false);
        std::vector<std::uint64_t> numeros(archivos.size());
        PasadaDeArchivos primera(revisor, *salida, contado, [&](const LineaRevisada& linea, const auto&, bool bien) {
            lotes.Agregar(linea.archivo, linea.unidad, !bien);
        });
        revision.Correr(primera);
        if (!primera.Entera()) return conversion;
        if (conversion.hallazgos > 0) ExigirComparables(revision.Relacion(), "records can't be left out");
        lotes.Terminar();
        const OyenteDeConversion nadie = [](const HallazgoDeDatos&) {};
        PasadaDeArchivos segunda(
            revisor, *salida, nadie, [&](const LineaRevisada& linea, const PasadaDeArchivos::Valores& valores, bool bien) {
                const bool malo = lotes.Malo(linea.archivo, numeros[static_cast<std::size_t>(linea.archivo)]++);
                escribir(linea, valores, bien && !malo);
            });
        RevisionDeArchivos(diseno, reglas, archivos).Correr(segunda);
        lectura.ExigirIguales();
    }
    salida->PonerEnSuLugar();
    conversion.escrita = true;
    return conversion;
}

}  // namespace qor
