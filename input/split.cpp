#include "input/split.h"

#include <algorithm>
#include <deque>
#include <string>

#include "base/failure.h"
#include "base/new_file.h"
#include "base/text.h"
#include "input/check.h"

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

// Gathers which lines are bad, and writes the reasons: one bit for a line, and its unit where records are joined by keys.
class MarcasDeLineas : public OyenteDeRevision {
public:
    MarcasDeLineas(std::deque<Salidas>& salidas, const RelacionDeRegistros& relacion)
        : salidas_(salidas), relacion_(relacion), malas_(salidas.size()), nodos_(salidas.size()) {}

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
        auto& malas = malas_[static_cast<std::size_t>(linea.archivo)];
        if (relacion_.LaForma() == RelacionDeRegistros::Forma::PorPosicion) {
            if (linea.unidad != unidad_) TerminarUnidad();
            unidad_ = linea.unidad;
            unidadMala_ = unidadMala_ || linea.mala;
        }
        malas.push_back(linea.mala);
        if (relacion_.LaForma() == RelacionDeRegistros::Forma::PorClaves) {
            nodos_[static_cast<std::size_t>(linea.archivo)].push_back(linea.unidad);
        }
        return true;
    }

    // Behind the check: what goes with a bad line is bad, too.
    void Terminar() {
        if (relacion_.LaForma() == RelacionDeRegistros::Forma::PorPosicion) TerminarUnidad();
        std::vector<bool> unidadesMalas;
        const auto cadaUnidad = [&](auto hacer) {
            for (std::size_t archivo = 0; archivo < nodos_.size(); ++archivo) {
                for (std::size_t linea = 0; linea < nodos_[archivo].size(); ++linea) {
                    const auto nodo = nodos_[archivo][linea];
                    if (nodo != RelacionDeRegistros::sinUnidad) hacer(malas_[archivo][linea], nodo, relacion_.Unidad(nodo));
                }
            }
        };
        cadaUnidad([&](std::vector<bool>::reference mala, std::uint32_t nodo, std::uint32_t unidad) {
            if (unidad >= unidadesMalas.size()) unidadesMalas.resize(unidad + std::size_t{1});
            if (mala || !relacion_.TienePrincipal(nodo)) unidadesMalas[unidad] = true;
        });
        cadaUnidad([&](std::vector<bool>::reference mala, std::uint32_t, std::uint32_t unidad) { mala = unidadesMalas[unidad]; });
    }

    const std::vector<bool>& Malas(std::size_t archivo) const { return malas_[archivo]; }

private:
    // The one file: all lines since the last main record share its lot.
    void TerminarUnidad() {
        auto& malas = malas_.front();
        if (unidadMala_) std::fill(malas.begin() + static_cast<std::ptrdiff_t>(principio_), malas.end(), true);
        principio_ = malas.size();
        unidadMala_ = false;
    }

    std::deque<Salidas>& salidas_;
    const RelacionDeRegistros& relacion_;
    std::vector<std::vector<bool>> malas_;           // by file and line
    std::vector<std::vector<std::uint32_t>> nodos_;  // by file and line, where records are joined by keys
    std::uint32_t unidad_ = 0;
    bool unidadMala_ = false;
    std::size_t principio_ = 0;  // the first line of the unit
};

// Copies the lines of a file, those that follow one another in one piece.
CuentaDePartes Copiar(const ArchivoAbierto& archivo, const std::vector<bool>& malas, Salidas& salidas) {
    CuentaDePartes cuenta;
    LectorDeEntrada lector(archivo);
    LineaLeida linea;
    std::string trozo;
    for (std::size_t numero = 0; lector.Linea(linea); ++numero) {
        if (numero >= malas.size()) break;
        auto& salida = malas[numero] ? salidas.malos : salidas.buenos;
        ++(malas[numero] ? cuenta.malas : cuenta.buenas);
        if (linea.bytes.size() == linea.largo) {
            salida.Escribir(linea.bytes);
            continue;
        }
        // A very long line, piece by piece.
        trozo.resize(std::size_t{1} << 16);
        for (std::uint64_t lugar = 0; lugar < linea.largo;) {
            const auto quedan = std::min<std::uint64_t>(trozo.size(), linea.largo - lugar);
            const auto leidos = archivo.LeerEn(trozo.data(), static_cast<std::size_t>(quedan), linea.lugar + lugar);
            if (leidos == 0) throw FalloDeArchivo(motivoCambiado, archivo.Ruta());
            salida.Escribir(std::string_view(trozo).substr(0, leidos));
            lugar += leidos;
        }
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
    if (const auto& sueltas = revision.Relacion().SinComparar(); !sueltas.empty()) {
        const auto& una = sueltas.front();
        throw FalloDeEjecucion("the files can't be parted: " + una.campo + (una.campo.empty() ? "" : ": ") + una.texto);
    }
    std::vector<IdentidadDeArchivo> identidades;
    identidades.reserve(partes.size());
    for (const auto& este : revision.Archivos()) identidades.push_back(este.archivo.Identidad());
    std::deque<Salidas> salidas;
    for (const auto& parte : partes) salidas.emplace_back(parte);

    MarcasDeLineas marcas(salidas, revision.Relacion());
    revision.Correr(marcas);
    for (const auto& este : revision.Archivos()) {
        if (!este.leido) throw FalloDeArchivo("The file is in UTF-16, and the report reads windows-1252", este.archivo.Ruta());
    }
    marcas.Terminar();

    std::vector<CuentaDePartes> cuentas;
    cuentas.reserve(partes.size());
    for (std::size_t i = 0; i < partes.size(); ++i) {
        const auto& archivo = revision.Archivos()[i].archivo;
        cuentas.push_back(Copiar(archivo, marcas.Malas(i), salidas[i]));
        if (archivo.Identidad() != identidades[i]) throw FalloDeArchivo(motivoCambiado, archivo.Ruta());
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
