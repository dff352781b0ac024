#include "input/preview_check.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "input/check.h"
#include "input/value_rules.h"

namespace qor {

// Keeps the first findings until they are taken, and counts the others.
class RevisionEnFondo::Oyente : public OyenteDeRevision {
public:
    explicit Oyente(RevisionEnFondo& revision) : revision_(revision) {}

    bool Hallado(const HallazgoDeDatos& hallazgo) override {
        const std::lock_guard guarda(revision_.candado_);
        const bool aviso = EsAviso(hallazgo.clase);
        auto& guardados = aviso ? avisos_ : errores_;
        if (guardados < revision_.pedido_.maximo) {
            ++guardados;
            revision_.nuevos_.push_back(hallazgo);
        } else {
            ++(aviso ? revision_.avisosDeMas_ : revision_.erroresDeMas_);
        }
        return !revision_.parar_;
    }

    bool Avanzo(int archivo, std::uint64_t leidos, std::uint64_t tamano) override {
        if (archivo != archivo_) {
            anteriores_ += std::exchange(tamano_, tamano);
            archivo_ = archivo;
        }
        tamano_ = tamano;
        revision_.leidos_ = anteriores_ + leidos;
        return !revision_.parar_;
    }

private:
    RevisionEnFondo& revision_;
    int archivo_ = 0;
    std::uint64_t anteriores_ = 0;  // bytes of the files before this one
    std::uint64_t tamano_ = 0;
    std::size_t errores_ = 0;  // handed over
    std::size_t avisos_ = 0;
};

RevisionEnFondo::RevisionEnFondo(Pedido pedido) : pedido_(std::move(pedido)) {
    hilo_ = std::thread([this] {
        try {
            Revisar();
        } catch (const std::exception& fallo) {
            PonerFallo(fallo);
        }
        corriendo_ = false;
    });
}

RevisionEnFondo::~RevisionEnFondo() {
    parar_ = true;
    hilo_.join();
}

void RevisionEnFondo::Revisar() {
    // Files behind one that was not chosen can't be told apart from it.
    const auto hasta = std::find(pedido_.archivos.begin(), pedido_.archivos.end(), std::filesystem::path());
    const std::vector<std::filesystem::path> archivos(pedido_.archivos.begin(), hasta);
    const ReglasDeValores reglas(pedido_.clases, pedido_.documento.parent_path());
    RevisionDeArchivos revision(*pedido_.diseno, reglas, archivos);
    std::uint64_t bytes = 0;
    for (const auto& archivo : revision.Archivos()) bytes += archivo.archivo.Identidad().tamano;
    bytes_ = bytes;
    Oyente oyente(*this);
    completa_ = revision.Correr(oyente) && archivos.size() == pedido_.archivos.size();
}

void RevisionEnFondo::PonerFallo(const std::exception& fallo) {
    const std::lock_guard guarda(candado_);
    fallo_ = FalloDe(fallo);
}

int RevisionEnFondo::PorMil() const {
    constexpr std::uint64_t todo = 1000;
    const std::uint64_t bytes = bytes_;
    return bytes == 0 ? 0 : static_cast<int>(std::min(todo, leidos_ * todo / bytes));
}

bool RevisionEnFondo::Tomar(HallazgosVistos& hallazgos) {
    std::vector<HallazgoDeDatos> nuevos;
    std::uint64_t errores = 0;
    std::uint64_t avisos = 0;
    {
        const std::lock_guard guarda(candado_);
        nuevos.swap(nuevos_);
        errores = std::exchange(erroresDeMas_, 0);
        avisos = std::exchange(avisosDeMas_, 0);
    }
    bool alFinal = true;
    for (auto& hallazgo : nuevos) alFinal = hallazgos.Agregar(std::move(hallazgo)) && alFinal;
    hallazgos.Contar(errores, avisos);
    return alFinal;
}

std::optional<FalloDeMensaje> RevisionEnFondo::Fallo() const {
    const std::lock_guard guarda(candado_);
    return fallo_;
}

}  // namespace qor
