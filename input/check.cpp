#include "input/check.h"

#include <algorithm>

#include "base/failure.h"
#include "input/encoding.h"

namespace qor {

namespace {

constexpr std::uint64_t cadaCuanto = std::uint64_t{1} << 22;  // bytes between two reports of progress

const char* NombreDeFin(FinDeLinea fin) {
    switch (fin) {
        case FinDeLinea::LF: return "LF";
        case FinDeLinea::CRLF: return "CR LF";
        case FinDeLinea::CR: return "CR";
        case FinDeLinea::Ninguno: break;
    }
    return "";
}

// Lines are not cut within what the report reads of them.
std::size_t MaximoDeLinea(const DisenoDeEntrada& diseno) {
    std::size_t maximo = LectorDeEntrada::lineaMaxima;
    for (const auto& clase : diseno.Clases()) maximo = std::max(maximo, clase.largo + clase.campos.size());
    return maximo;
}

}  // namespace

// The pass over one file.
class RevisionDeArchivos::Pasada {
public:
    Pasada(RevisionDeArchivos& revision, int numero, OyenteDeRevision& oyente)
        : revision_(revision),
          este_(revision.archivos_[static_cast<std::size_t>(numero)]),
          oyente_(oyente),
          lector_(este_.archivo, 0, MaximoDeLinea(revision.revisor_.Diseno())) {
        linea_.archivo = numero;
    }

    bool Correr() {
        const auto tamano = este_.archivo.Identidad().tamano;
        std::uint64_t avance = cadaCuanto;
        while (lector_.Linea(linea_.leida)) {
            ++linea_.numero;
            if (linea_.numero == 1 && !Empezar()) return Entregar();
            if (!Revisar()) return false;
            const auto leidos = linea_.leida.lugar + linea_.leida.largo;
            if (leidos < avance) continue;
            avance = leidos + cadaCuanto;
            if (!oyente_.Avanzo(linea_.archivo, leidos, tamano)) return false;
        }
        este_.leido = true;
        if (linea_.numero > 0 && linea_.leida.fin == FinDeLinea::Ninguno) {
            Decir(HallazgoDeEntrada::SinFinDeLinea, "the last line of the file has no line end");
        }
        return Entregar() && oyente_.Avanzo(linea_.archivo, tamano, tamano);
    }

private:
    HallazgoDeDatos& Decir(HallazgoDeEntrada clase, std::string texto) {
        auto& hallazgo = hallazgos_.emplace_back();
        hallazgo.clase = clase;
        hallazgo.texto = std::move(texto);
        return hallazgo;
    }

    // The byte order mark. False where the file can't be read on.
    bool Empezar() {
        switch (MarcaDeOrden(linea_.leida.bytes)) {
            case Codificacion::Windows1252: return true;
            case Codificacion::Utf8:
                conMarca_ = enUtf8_ = decidida_ = true;
                Decir(HallazgoDeEntrada::MarcaDeOrden,
                      "a byte order mark of UTF-8 begins the file, which the report takes for data");
                return true;
            case Codificacion::Utf16: break;
        }
        Decir(HallazgoDeEntrada::MarcaDeOrden, "a byte order mark of UTF-16 begins the file, which can't be read");
        return false;
    }

    // What is told once for the file, and the text of the line. Seldom anything but the text.
    void LeerTexto() {
        linea_.texto = linea_.leida.texto;
        if (conMarca_ && linea_.numero == 1) {
            linea_.texto.remove_prefix(std::min(largoDeMarcaUtf8, linea_.texto.size()));
            linea_.mala = true;
        }
        const auto fin = linea_.leida.fin;
        if (fin != primerFin_ && fin != FinDeLinea::Ninguno) {
            if (primerFin_ == FinDeLinea::Ninguno) {
                primerFin_ = fin;
            } else if (!mezclados_) {
                mezclados_ = true;
                Decir(HallazgoDeEntrada::FinesMezclados,
                      std::string("ends with ") + NombreDeFin(fin) + ", the lines before with " + NombreDeFin(primerFin_));
            }
        }
        if (linea_.leida.limpia || (decidida_ && !enUtf8_)) return;
        const bool hayOtros = std::any_of(linea_.texto.begin(), linea_.texto.end(), [](char c) { return c < 0; });
        if (!hayOtros) return;
        if (!decidida_) {
            // All before this line was ASCII.
            decidida_ = true;
            enUtf8_ = EsUtf8Desde(este_.archivo, linea_.leida.lugar);
        }
        if (enUtf8_) ConvertirTexto();
    }

    void ConvertirTexto() {
        if (!dichoUtf8_) {
            dichoUtf8_ = true;
            Decir(HallazgoDeEntrada::Utf8, "the file is in UTF-8, of which this line has the first character outside ASCII");
        }
        linea_.mala = linea_.enUtf8 = true;
        faltas_.clear();
        convertida_ = TextoDesdeUtf8(linea_.texto, faltas_);
        linea_.texto = convertida_;
    }

    bool Revisar() {
        const auto& revisor = revision_.revisor_;
        linea_.mala = linea_.enUtf8 = false;
        LeerTexto();
        const auto propios = hallazgos_.size();
        linea_.clase = revisor.Diseno().ClaseDeLinea(linea_.archivo, linea_.texto);
        if (linea_.clase >= 0) ++este_.registros;
        if (!faltas_.empty()) {
            revisor.Situar(Decir(HallazgoDeEntrada::SinCaracter, "windows-1252 has no such character"), linea_.clase, linea_.texto,
                           faltas_.front());
            faltas_.clear();
        }
        if (!linea_.leida.limpia && !enUtf8_ && TieneUtf8(linea_.texto)) {
            const auto otro = std::find_if(linea_.texto.begin(), linea_.texto.end(), [](char c) { return c < 0; });
            revisor.Situar(Decir(HallazgoDeEntrada::Utf8Mezclado, "the characters could be meant as UTF-8, which the file is not"),
                           linea_.clase, linea_.texto, static_cast<std::size_t>(otro - linea_.texto.begin()));
        }
        revisor.Revisar(linea_.clase, linea_.texto, hallazgos_, linea_.leida.limpia, linea_.leida.sobra);
        for (auto& hallazgo : hallazgos_) hallazgo.linea = linea_.numero;
        linea_.unidad = revision_.relacion_.Tomar(linea_.archivo, linea_.clase, linea_.numero, linea_.texto, hallazgos_);
        if (!hallazgos_.empty()) {
            linea_.mala = linea_.mala || std::any_of(hallazgos_.begin() + static_cast<std::ptrdiff_t>(propios), hallazgos_.end(),
                                                     [](const auto& hallazgo) { return !EsAviso(hallazgo.clase); });
            if (!Entregar()) return false;
        }
        return oyente_.Leida(linea_);
    }

    bool Entregar() {
        bool sigue = true;
        for (auto& hallazgo : hallazgos_) {
            hallazgo.archivo = linea_.archivo;
            if (hallazgo.linea == 0) hallazgo.linea = linea_.numero;
            sigue = sigue && oyente_.Hallado(hallazgo);
        }
        hallazgos_.clear();
        return sigue;
    }

    RevisionDeArchivos& revision_;
    DeArchivo& este_;
    OyenteDeRevision& oyente_;
    LectorDeEntrada lector_;
    LineaRevisada linea_;
    std::vector<HallazgoDeDatos> hallazgos_;
    FinDeLinea primerFin_ = FinDeLinea::Ninguno;
    bool mezclados_ = false;
    bool conMarca_ = false;
    bool decidida_ = false;  // the encoding, by the first line with a character outside ASCII
    bool enUtf8_ = false;
    bool dichoUtf8_ = false;
    std::string convertida_;
    std::vector<std::size_t> faltas_;
};

RevisionDeArchivos::RevisionDeArchivos(const DisenoDeEntrada& diseno, const ReglasDeValores& reglas,
                                       const std::vector<std::filesystem::path>& archivos)
    : revisor_(diseno, reglas), relacion_(revisor_, archivos.size()) {
    if (archivos.size() > diseno.Archivos().size()) throw FalloDeEjecucion("there are more files than the document has");
    for (const auto& ruta : archivos) archivos_.push_back({ArchivoAbierto(ruta)});
}

bool RevisionDeArchivos::Correr(OyenteDeRevision& oyente) {
    bool todos = true;
    for (int numero = 0; numero < static_cast<int>(archivos_.size()); ++numero) {
        if (!Pasada(*this, numero, oyente).Correr()) return false;
        todos = todos && archivos_[static_cast<std::size_t>(numero)].leido;
        // Without its orders no item can be told from others.
        if (!todos) relacion_.Anular();
    }
    std::vector<HallazgoDeDatos> hallazgos;
    relacion_.Terminar(hallazgos);
    return std::all_of(hallazgos.begin(), hallazgos.end(), [&](const auto& hallazgo) { return oyente.Hallado(hallazgo); });
}

}  // namespace qor
