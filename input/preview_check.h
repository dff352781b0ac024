#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "base/messages.h"
#include "input/data_finding.h"
#include "input/kinds.h"
#include "input/layout.h"
#include "input/preview_findings.h"

namespace qor {

// A check of the input files of a specification in a thread of its own: it begins when this is made, and ends with it.
class RevisionEnFondo {
public:
    struct Pedido {
        std::shared_ptr<const DisenoDeEntrada> diseno;
        ClasesDeCampos clases;
        std::filesystem::path documento;  // where value lists are relative to
        // Those of the layout. From the first empty path on none is checked.
        std::vector<std::filesystem::path> archivos;
        std::size_t maximo = 0;  // so many errors are handed over, and so many hints; all are counted
    };

    explicit RevisionEnFondo(Pedido pedido);
    ~RevisionEnFondo();
    RevisionEnFondo(const RevisionEnFondo&) = delete;
    RevisionEnFondo& operator=(const RevisionEnFondo&) = delete;

    void Detener() { parar_ = true; }
    bool Corriendo() const { return corriendo_; }
    // How much of the files is done, from 0 to 1000.
    int PorMil() const;
    // Hands over what was found since the last call. True when it lies behind all that was there.
    bool Tomar(HallazgosVistos& hallazgos);
    // Behind the end: the files were checked as a whole; and else why not, empty where it was stopped.
    bool Completa() const { return completa_; }
    std::optional<FalloDeMensaje> Fallo() const;

private:
    class Oyente;

    void Revisar();
    void PonerFallo(const std::exception& fallo);

    Pedido pedido_;
    std::atomic<bool> parar_{false};
    std::atomic<bool> corriendo_{true};
    std::atomic<bool> completa_{false};
    std::atomic<std::uint64_t> leidos_{0};
    std::atomic<std::uint64_t> bytes_{0};  // of all files
    mutable std::mutex candado_;
    std::vector<HallazgoDeDatos> nuevos_;  // not yet taken
    std::uint64_t erroresDeMas_ = 0;
    std::uint64_t avisosDeMas_ = 0;
    std::optional<FalloDeMensaje> fallo_;
    std::thread hilo_;
};

}  // namespace qor
