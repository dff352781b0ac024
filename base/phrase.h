#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// A text with its parts in the places "%1" to "%9". What is put in is not searched for places; one without a part stays empty.
std::string Llenar(std::string_view plantilla, const std::vector<std::string>& partes);

// A sentence in English with its parts kept apart, so that whoever shows it can say it in another language. Texts are windows-1252.
class Frase {
public:
    Frase() = default;
    // The same in every language: a name, a value, what others have said.
    Frase(std::string texto) : texto_(std::move(texto)) {}
    // "%1" to "%9" in `ingles`, a literal, stand for the parts.
    Frase(const char* ingles, std::vector<Frase> partes = {}) : ingles_(ingles), partes_(std::move(partes)) {}

    // A row of the specification, from 0. The command line counts rows so, the screen from 1.
    static Frase DeFila(int fila) {
        Frase frase;
        frase.fila_ = fila;
        return frase;
    }

    bool Vacia() const { return !fila_ && (ingles_ == nullptr ? texto_.empty() : *ingles_ == '\0'); }
    std::string EnIngles() const;
    // `palabra` gives the twin of a sentence in English: std::string(std::string_view ingles). `primeraFila`: how the first row
    // counts.
    template <typename Palabra>
    std::string En(const Palabra& palabra, int primeraFila = 0) const {
        if (fila_) return std::to_string(*fila_ + primeraFila);
        if (ingles_ == nullptr) return texto_;
        std::vector<std::string> dichas;
        for (const auto& parte : partes_) dichas.push_back(parte.En(palabra, primeraFila));
        return Llenar(palabra(std::string_view(ingles_)), dichas);
    }

    // The sentence with another one in the place of each text: `otra`, Frase(std::string_view texto).
    template <typename Otra>
    Frase Con(const Otra& otra) const {
        if (fila_) return *this;
        if (ingles_ == nullptr) return otra(std::string_view(texto_));
        Frase frase(ingles_);
        for (const auto& parte : partes_) frase.partes_.push_back(parte.Con(otra));
        return frase;
    }

private:
    const char* ingles_ = nullptr;
    std::string texto_;
    std::vector<Frase> partes_;
    std::optional<int> fila_;
};

// Whether a text is that sentence with its parts, which are then what stands in their places; none of them holds what stands
// behind it in the sentence. The parts of `ingles` are in their order.
std::optional<Frase> ReconocerFrase(std::string_view texto, const char* ingles);

}  // namespace qor
