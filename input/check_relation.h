#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/check_line.h"
#include "input/data_finding.h"

namespace qor {

// A set of texts, each with a number from 0 in the order in which they came.
class TablaDeTextos {
public:
    struct Sitio {
        std::uint32_t numero;
        bool nuevo;
    };
    // Throws FalloDeEjecucion for more than four thousand million of them.
    Sitio Poner(std::string_view texto);
    std::string_view Texto(std::uint32_t numero) const;
    std::size_t Cuantos() const { return fines_.size(); }

private:
    void Ampliar();

    std::vector<char> textos_;           // one behind the other
    std::vector<std::size_t> fines_;     // where each ends
    std::vector<std::uint64_t> celdas_;  // by hash; 0 for none
    std::uint32_t ultimo_ = 0;
};

// Which records belong together, as the report joins them:
//
// - In the one file, where some step-loop has no key: by position, a record of a step-loop belongs to the main record before it.
// - Else by the values of the keys, compared without the blanks behind them, wherever the records stand. A step-loop is left out
//   whose keys the main record lacks, or that the user's own conversions may change before they are compared; so is one without
//   keys in a file of its own.
//
// Takes in records in the order in which they are read, and tells main records with a key that an earlier one has, records of
// step-loops without a main record, and main records that no record of a step-loop belongs to; at the end, which step-loops it has
// left out. Grows with the number of keys only.
class RelacionDeRegistros {
public:
    // How many of the layout's files are read: from the first one on. Keeps the reference.
    RelacionDeRegistros(const RevisorDeLineas& revisor, std::size_t archivos);

    enum class Forma { Ninguna, PorPosicion, PorClaves };
    Forma LaForma() const { return forma_; }

    // A unit is what belongs together: all records of the same one go into the same file when records are parted. By position it is
    // the number of main records so far; by keys it has to be asked for with Unidad once all records are in.
    static constexpr std::uint32_t sinUnidad = 0xFFFFFFFF;
    std::uint32_t Tomar(int archivo, int clase, std::uint64_t numero, std::string_view linea,
                        std::vector<HallazgoDeDatos>& hallazgos);

    // A record could not be read: nothing is told any more.
    void Anular() {
        forma_ = Forma::Ninguna;
        sinComparar_.clear();
    }

    // The step-loops of all files that are left out, each as a finding of its file as a whole that names the field and tells why.
    const std::vector<HallazgoDeDatos>& SinComparar() const { return sinComparar_; }

    // Behind the last record of all.
    void Terminar(std::vector<HallazgoDeDatos>& hallazgos);

    // By keys, of what Tomar has answered: the unit, and whether one of its records lacks its main record.
    std::uint32_t Unidad(std::uint32_t nodo) const;
    bool TienePrincipal(std::uint32_t nodo) const { return nodos_[nodo].principal != 0; }

private:
    // The values of some fields; several step-loops can have the same ones.
    struct Claves {
        std::vector<std::size_t> enPrincipal;  // places of the fields
        std::vector<std::size_t> enPartida;
        std::size_t juego = 0;  // number of the set of fields; sets of the same rows are one
        bool hay = false;
    };
    struct Nodo {
        std::uint64_t principal = 0;  // line of the first main record with this key
        mutable std::uint32_t padre = 0;
        bool conPartidas = false;  // of the unit, in its root
    };
    struct Pendiente {
        std::uint32_t nodo;
        int archivo;
        int clase;
        std::uint64_t numero;
    };

    TablaDeTextos::Sitio PonerClave(std::size_t juego, int clase, const std::vector<std::size_t>& campos, std::string_view linea);
    std::uint32_t TomarPorPosicion(int archivo, int clase, std::uint64_t numero, std::vector<HallazgoDeDatos>& hallazgos);
    std::uint32_t TomarPrincipal(std::uint64_t numero, std::string_view linea, std::vector<HallazgoDeDatos>& hallazgos);
    std::uint32_t TomarPartida(const Pendiente& partida, const Claves& claves, std::string_view linea,
                               std::vector<HallazgoDeDatos>& hallazgos);
    void Unir(std::uint32_t uno, std::uint32_t otro);
    void AgregarSinComparar(int clase, int campo, const char* motivo);
    static void DecirSinPartidas(std::uint64_t numero, std::vector<HallazgoDeDatos>& hallazgos);
    HallazgoDeDatos DeClave(HallazgoDeEntrada falta, const Pendiente& registro, std::string texto) const;

    const RevisorDeLineas& revisor_;
    Forma forma_ = Forma::Ninguna;
    bool todos_ = false;  // all files are read
    std::size_t archivos_;
    std::vector<HallazgoDeDatos> sinComparar_;

    // By position
    std::uint32_t unidad_ = 0;
    std::uint64_t principal_ = 0;  // the line of the last main record
    bool conPartidas_ = false;

    // By keys
    std::vector<Claves> claves_;         // by class; nothing in that of the main record
    std::vector<std::size_t> primeras_;  // of each set the first class
    TablaDeTextos tabla_;
    std::vector<Nodo> nodos_;
    std::vector<Pendiente> pendientes_;  // in the one file their main record may come later
    std::string clave_;
};

}  // namespace qor
