#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "abap/values/structure.h"
#include "abap/values/table_pass.h"

namespace qor::abap {

// An equality that rows have to fulfil: the component of a row, and the value that it is compared with.
struct Igualdad {
    Componente componente;
    Campo valor;
};

// The rows of an internal table. Rows don't move while they are in the table; they are numbered from 0 here, and from 1 in a
// report. A row of STRING is a std::string.
class TablaInterna {
public:
    explicit TablaInterna(TipoDeCampo linea);
    TablaInterna(TablaInterna&& otra) noexcept;
    TablaInterna& operator=(TablaInterna&& otra) noexcept;
    TablaInterna(const TablaInterna&) = delete;
    TablaInterna& operator=(const TablaInterna&) = delete;
    ~TablaInterna();

    const TipoDeCampo& Linea() const { return linea_; }
    std::size_t Filas() const { return filas_.size(); }
    std::uint8_t* Fila(std::size_t i) const { return filas_[i]; }
    Campo CampoDeFila(std::size_t i) const;

    // A new row behind the others, or in front of row `i`; its bytes are the caller's to fill, at once.
    std::uint8_t* Agregar();
    std::uint8_t* Insertar(std::size_t i);
    void Borrar(std::size_t i);
    // Without rows; a small table keeps its memory for the next ones.
    void Vaciar();

    // The row's bytes are about to be changed, or the order of the rows: indexes on them are dropped.
    void Cambia() {
        if (!indices_.empty()) SoltarIndices();
    }
    std::span<std::uint8_t*> Orden() { return filas_; }  // for sorting; call Cambia() too

    // The first row at or behind `desde` that fulfils all, or Filas(). Uses an index by hash where that pays and the comparison
    // is one of equal characters or numbers, else looks at each row.
    std::size_t BuscarIguales(std::span<const Igualdad> igualdades, std::size_t desde);

    // Loops over the rows, which want to hear of rows that are put in and taken out.
    Pasadas& SusPasadas() { return pasadas_; }

    // Field-symbols stand for rows from now on, and may change them at any time.
    void PonerSimbolos() { simbolos_ = true; }
    bool HaySimbolos() const { return simbolos_; }
    // COLLECT changes the numbers of rows, and does not tell it.
    void PonerSumas() { sumas_ = true; }
    bool HaySumas() const { return sumas_; }

    // Of a table that is watched, each row knows whether a loop has met it.
    void Vigilar();
    bool Vigilada() const { return vigilada_; }
    void Encontrar(std::size_t i);
    // Rows that were in the table at some time, and those of them that no loop has met.
    std::size_t Agregadas() const { return agregadas_; }
    std::size_t Perdidas() const { return agregadas_ - encontradas_; }

private:
    class Indice;

    // Memory of rows, one behind the other.
    struct Bloque {
        std::unique_ptr<std::uint8_t[]> memoria;
        std::size_t capacidad = 0;  // in rows
    };

    std::uint8_t* Nueva();
    void Iniciar(std::uint8_t* fila);
    void Terminar(std::uint8_t* fila);
    void SoltarIndices();
    Indice& IndiceDe(std::span<const Igualdad> igualdades);
    bool Cumple(std::size_t i, std::span<const Igualdad> igualdades) const;
    std::size_t BuscarUnaPorUna(std::span<const Igualdad> igualdades, std::size_t desde) const;

    TipoDeCampo linea_;
    std::size_t paso_ = 0;  // bytes from row to row, with the mark behind its bytes
    std::vector<std::uint8_t*> filas_;
    std::vector<Bloque> bloques_;
    std::vector<std::uint8_t*> libres_;
    std::size_t bloque_ = 0;  // the block that new rows come from
    std::size_t usadas_ = 0;  // rows taken from it
    std::vector<std::unique_ptr<Indice>> indices_;
    Pasadas pasadas_;
    bool simbolos_ = false;
    bool sumas_ = false;
    bool vigilada_ = false;
    std::size_t agregadas_ = 0;
    std::size_t encontradas_ = 0;
};

}  // namespace qor::abap
