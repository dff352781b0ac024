#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace qor::abap {

// A pass over the rows of a table: the number of the row that comes next. Rows that are put in or taken out in front of it move it.
class Pasada {
public:
    using Abiertas = std::vector<Pasada*>;

    Pasada() = default;
    Pasada(const Pasada&) = delete;
    Pasada& operator=(const Pasada&) = delete;
    ~Pasada() { Terminar(); }

    void Empezar(std::shared_ptr<Abiertas>& abiertas, std::size_t desde) {
        Terminar();
        if (abiertas == nullptr) abiertas = std::make_shared<Abiertas>();
        abiertas_ = abiertas;
        abiertas_->push_back(this);
        siguiente = desde;
    }

    void Terminar() {
        if (abiertas_ == nullptr) return;
        std::erase(*abiertas_, this);
        abiertas_.reset();
    }

    std::size_t siguiente = 0;

private:
    std::shared_ptr<Abiertas> abiertas_;  // those of the table
};

// The passes over a table that are under way.
class Pasadas {
public:
    void Empezar(Pasada& pasada, std::size_t desde) { pasada.Empezar(abiertas_, desde); }

    void Inserta(std::size_t fila) {
        if (abiertas_ == nullptr) return;
        for (Pasada* pasada : *abiertas_) {
            if (fila < pasada->siguiente) ++pasada->siguiente;
        }
    }

    void Borra(std::size_t fila) {
        if (abiertas_ == nullptr) return;
        for (Pasada* pasada : *abiertas_) {
            if (fila < pasada->siguiente) --pasada->siguiente;
        }
    }

    bool HayAbiertas() const { return abiertas_ != nullptr && !abiertas_->empty(); }

private:
    std::shared_ptr<Pasada::Abiertas> abiertas_;
};

}  // namespace qor::abap
