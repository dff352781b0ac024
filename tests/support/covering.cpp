#include "tests/support/covering.h"

#include <algorithm>
#include <cstddef>

namespace qor::pruebas {

namespace {

constexpr int libre = -1;

using Fila = std::vector<int>;

// Some factors, and which combinations of their levels have occurred.
struct Grupo {
    std::vector<std::size_t> factores;
    std::vector<bool> vistas;
};

class Cobertura {
public:
    Cobertura(const std::vector<int>& niveles, int fuerza) : niveles_(niveles) { Formar({}, 0, static_cast<std::size_t>(fuerza)); }

    std::vector<Fila> Filas() {
        std::vector<Fila> filas;
        for (auto& grupo : grupos_) {
            for (std::size_t n = 0; n < grupo.vistas.size(); ++n) {
                if (grupo.vistas[n]) continue;
                filas.push_back(Completar(Empezar(grupo, n), filas.size()));
                for (auto& otro : grupos_) otro.vistas[static_cast<std::size_t>(NumeroEn(otro, filas.back()))] = true;
            }
        }
        return filas;
    }

private:
    void Formar(const std::vector<std::size_t>& factores, std::size_t desde, std::size_t faltan) {
        if (faltan == 0) {
            std::size_t total = 1;
            for (const auto f : factores) total *= static_cast<std::size_t>(niveles_[f]);
            grupos_.push_back({factores, std::vector<bool>(total)});
            return;
        }
        for (std::size_t f = desde; f < niveles_.size(); ++f) {
            auto con = factores;
            con.push_back(f);
            Formar(con, f + 1, faltan - 1);
        }
    }

    // The number of the combination that a row has; -1 when a factor of it is free.
    int NumeroEn(const Grupo& grupo, const Fila& fila) const {
        int numero = 0;
        for (const auto f : grupo.factores) {
            if (fila[f] == libre) return libre;
            numero = numero * niveles_[f] + fila[f];
        }
        return numero;
    }

    Fila Empezar(const Grupo& grupo, std::size_t numero) const {
        Fila fila(niveles_.size(), libre);
        for (auto f = grupo.factores.rbegin(); f != grupo.factores.rend(); ++f) {
            const auto cuantos = static_cast<std::size_t>(niveles_[*f]);
            fila[*f] = static_cast<int>(numero % cuantos);
            numero /= cuantos;
        }
        return fila;
    }

    // Each free factor takes the level that brings the most new combinations; among equals another one in each row.
    Fila Completar(Fila fila, std::size_t vuelta) const {
        for (std::size_t f = 0; f < fila.size(); ++f) {
            if (fila[f] != libre) continue;
            int mejor = 0;
            int masNuevas = -1;
            for (int i = 0; i < niveles_[f]; ++i) {
                fila[f] = static_cast<int>((static_cast<std::size_t>(i) + vuelta) % static_cast<std::size_t>(niveles_[f]));
                const int nuevas = Nuevas(fila, f);
                if (nuevas > masNuevas) masNuevas = nuevas, mejor = fila[f];
            }
            fila[f] = mejor;
        }
        return fila;
    }

    int Nuevas(const Fila& fila, std::size_t factor) const {
        return static_cast<int>(std::count_if(grupos_.begin(), grupos_.end(), [&](const Grupo& grupo) {
            if (std::find(grupo.factores.begin(), grupo.factores.end(), factor) == grupo.factores.end()) return false;
            const int numero = NumeroEn(grupo, fila);
            return numero != libre && !grupo.vistas[static_cast<std::size_t>(numero)];
        }));
    }

    const std::vector<int>& niveles_;
    std::vector<Grupo> grupos_;
};

}  // namespace

std::vector<std::vector<int>> FilasQueCubren(const std::vector<int>& niveles, int fuerza) {
    return Cobertura(niveles, fuerza).Filas();
}

}  // namespace qor::pruebas
