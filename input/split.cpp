#include "input/split.h"

#include <algorithm>
#include <deque>
#include <string>

#include "base/failure.h"
#include "base/new_file.h"
#include "base/text.h"
#include "input/check.h"
#include "input/line_copy.h"
#include "input/record_lots.h"

namespace qor {

namespace {

// No output may be an input, or another output under a second name.
void ExigirSalidasPropias(const std::vector<PartesDeArchivo>& partes) {
    std::vector<std::filesystem::path> vistas;
    const auto agregar = [&](const std::filesystem::path& ruta) {
        for (const auto& vista : vistas) {
            if (EsElMismoLugar(vista, ruta)) {
                throw FalloDeEjecucion("the output " + ruta.string() + " is an input or another output as well");
            }
        }
        vistas.push_back(ruta);
    };
    for (const auto& parte : partes) vistas.push_back(parte.archivo);
    for (const auto& parte : partes) {
        for (const auto* salida : {&parte.buenos, &parte.malos, &parte.motivos}) agregar(*salida);
    }
}

struct Salidas {
    explicit Salidas(const PartesDeArchivo& partes) : buenos(partes.buenos), malos(partes.malos), motivos(partes.motivos) {}
    ArchivoNuevo buenos;
    ArchivoNuevo malos;
    ArchivoNuevo motivos;
};

// Gathers which lines are bad, and writes the reasons.
class MarcasDeLineas : public OyenteDeRevision {
public:
    MarcasDeLineas(std::deque<Salidas>& salidas, LotesDeRegistros& lotes) : salidas_(salidas), lotes_(lotes) {}

    bool Hallado(const HallazgoDeDatos& hallazgo) override {
        // UTF-8 is told of each line.
        if (EsAviso(hallazgo.clase) || hallazgo.clase == HallazgoDeEntrada::Utf8) return true;
        auto texto = hallazgo.valor.empty() ? hallazgo.texto : '"' + hallazgo.valor + "\": " + hallazgo.texto;
        std::replace_if(texto.begin(), texto.end(), EsControl, ' ');
        auto& motivos = salidas_[static_cast<std::size_t>(hallazgo.archivo)].motivos;
        motivos.Escribir(std::to_string(hallazgo.linea) + '\t' + hallazgo.campo + '\t' + texto + "\r\n");
        return true;
    }

    bool Leida(const LineaRevisada& linea) override {
        if (linea.enUtf8) {
            salidas_[static_cast<std::size_t>(linea.archivo)].motivos.Escribir(
                std::to_string(linea.numero) +
                "\t\tthe line is in UTF-8, and the report reads its characters outside ASCII as other ones\r\n");
        }
        lotes_.Agregar(linea.archivo, linea.unidad, linea.mala);
        return true;
    }

private:
    std::deque<Salidas>& salidas_;
    LotesDeRegistros& lotes_;
};

// Copies the lines of a file, those that follow one another in one piece.
CuentaDePartes Copiar(const ArchivoAbierto& archivo, int lugarDeArchivo, const LotesDeRegistros& lotes, Salidas& salidas) {
    CuentaDePartes cuenta;
    LectorDeEntrada lector(archivo);
    LineaLeida linea;
    for (std::size_t numero = 0; lector.Linea(linea); ++numero) {
        const bool mala = lotes.Malo(lugarDeArchivo, numero);
        auto& salida = mala ? salidas.malos : salidas.buenos;
        ++(mala ? cuenta.malas : cuenta.buenas);
        CopiarLinea(archivo, linea, salida);
    }
    return cuenta;
}

}  // namespace

std::vector<CuentaDePartes> PartirArchivos(const DisenoDeEntrada& diseno, const ReglasDeValores& reglas,
                                           const std::vector<PartesDeArchivo>& partes) {
    ExigirSalidasPropias(partes);
    std::vector<std::filesystem::path> archivos;
    for (const auto& parte : partes) archivos.push_back(parte.archivo);
    RevisionDeArchivos revision(diseno, reglas, archivos);
    ExigirComparables(revision.Relacion(), "the files can't be parted");
    std::vector<IdentidadDeArchivo> identidades;
    identidades.reserve(partes.size());
    for (const auto& este : revision.Archivos()) identidades.push_back(este.archivo.Identidad());
    std::deque<Salidas> salidas;
    for (const auto& parte : partes) salidas.emplace_back(parte);

    LotesDeRegistros lotes(revision.Relacion(), partes.size(), true);
    MarcasDeLineas marcas(salidas, lotes);
    revision.Correr(marcas);
    for (const auto& este : revision.Archivos()) {
        if (!este.leido) throw FalloDeArchivo("The file is in UTF-16, and the report reads windows-1252", este.archivo.Ruta());
    }
    lotes.Terminar();

    std::vector<CuentaDePartes> cuentas;
    cuentas.reserve(partes.size());
    for (std::size_t i = 0; i < partes.size(); ++i) {
        const auto& archivo = revision.Archivos()[i].archivo;
        cuentas.push_back(Copiar(archivo, static_cast<int>(i), lotes, salidas[i]));
        if (archivo.Identidad() != identidades[i]) throw FalloDeArchivo(CausaDeFallo::Cambiado, archivo.Ruta());
    }
    for (auto& de : salidas) {
        for (auto* salida : {&de.buenos, &de.malos, &de.motivos}) salida->LlevarAlDisco();
    }
    for (auto& de : salidas) {
        for (auto* salida : {&de.buenos, &de.malos, &de.motivos}) salida->PonerEnSuLugar();
    }
    return cuentas;
}

}  // namespace qor
