#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/private_directory.h"
#include "base/file_calls.h"
#include "base/files.h"

// What a rehearsal notes of its records while it runs: the journal tells what was sent, the steps beside it where that came from
// and what was not sent. Both lie in files of a moment; an index leads from a record to its part of them.
namespace qor {

// A step of the report on its way through a record.
struct Paso {
    enum class Clase : std::uint8_t {
        Linea,      // a step-loop comes to a line: `numero` is its group, `linea` the number of the line in its table
        Envio,      // a call of DYNPRO, from that line of the report; `numero` is the row on the screen, of a step-loop
        Condicion,  // a condition was asked for by that line of the report, for an operation or a field of a BAPI
        Operacion,  // the form of an operation came back to that line of the report
        Evento      // the journal has the next transaction or BAPI
    };
    // Of Envio:
    static constexpr std::uint8_t abre = 1;        // it was to open a screen
    static constexpr std::uint8_t enviado = 2;     // it became a row of BDCDATA
    static constexpr std::uint8_t preguntado = 4;  // its condition was asked
    static constexpr std::uint8_t enBlanco = 8;    // its value is blank
    // Of Envio and Condicion:
    static constexpr std::uint8_t cierta = 16;  // the condition is met
    // Of Evento:
    static constexpr std::uint8_t fallo = 32;
    static constexpr std::uint8_t conTexto = 64;  // a message stands behind it, of `numero` bytes

    std::uint32_t linea = 0;
    std::uint16_t numero = 0;
    Clase clase = Clase::Linea;
    std::uint8_t marcas = 0;

    bool Tiene(std::uint8_t marca) const { return (marcas & marca) != 0; }
};
static_assert(sizeof(Paso) == 8);

// A step with the message behind it.
struct PasoLeido {
    Paso paso;
    std::string_view texto;
};

// What is kept of a pass of a record.
struct NotasDePasada {
    std::string diario;  // lines of the journal
    std::string pasos;
};

std::vector<PasoLeido> LeerPasos(std::string_view pasos);

class NotasDeEnsayo {
public:
    // Throws FalloDeEjecucion where there is no place for files of a moment.
    NotasDeEnsayo();

    // Where the journal is to be written. Once it is begun it is held open, and no name leads to it any more.
    std::filesystem::path Diario() const { return directorio_->Ruta() / "journal"; }
    void EmpezarDiario();

    // A pass of the main loop over a record, 0 for what is outside of it; one ends the other. `lugar` is that in the journal.
    void AbrirPasada(std::size_t registro, std::uint64_t lugar);
    void CerrarPasada(std::uint64_t lugar);
    // The end of the run.
    void Terminar();

    void Anotar(const Paso& paso);
    void AnotarEvento(bool fallo, std::string_view texto);

    std::vector<NotasDePasada> De(std::size_t registro) const;
    // The steps alone.
    std::vector<std::string> PasosDe(std::size_t registro) const;
    // Hands out the journal piece by piece.
    template <class Hacer>
    void CadaTrozoDelDiario(Hacer hacer) const {
        std::string trozo(std::size_t{1} << 18, '\0');
        for (std::uint64_t lugar = 0;;) {
            const auto cuantos = diario_.Abierto() ? diario_.LeerEn(trozo.data(), trozo.size(), lugar) : 0;
            if (cuantos == 0) return;
            hacer(std::string_view(trozo.data(), cuantos));
            lugar += cuantos;
        }
    }

private:
    struct Pasada {
        std::uint64_t diario = 0;
        std::uint64_t pasos = 0;
        std::uint64_t largoDeDiario = 0;
        std::uint64_t largoDePasos = 0;
        std::size_t registro = 0;
    };

    void Vaciar();
    template <class Hacer>
    void CadaPasada(std::size_t registro, Hacer hacer) const;

    std::unique_ptr<DirectorioPrivado> directorio_;
    ArchivoAbierto diario_;
    Descriptor pasos_;
    std::string bloque_;
    std::uint64_t escritos_ = 0;
    std::vector<Pasada> pasadas_;  // in order of their records, once the run has ended
    bool abierta_ = false;
};

}  // namespace qor
