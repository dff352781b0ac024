#include "app/journal_line.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "base/code_page.h"

namespace qor {

namespace {

// No event is nested deeper, by far.
constexpr std::size_t honduraMaxima = 100;

class LectorDeEvento : public nlohmann::json_sax<nlohmann::json> {
public:
    ValorDeDiario raiz;

    bool null() override { return false; }
    bool boolean(bool /*valor*/) override { return false; }
    bool binary(binary_t& /*valor*/) override { return false; }
    bool number_integer(number_integer_t valor) override { return Poner(ValorDeDiario::Clase::Numero, std::to_string(valor)); }
    bool number_unsigned(number_unsigned_t valor) override { return Poner(ValorDeDiario::Clase::Numero, std::to_string(valor)); }
    bool number_float(number_float_t /*valor*/, const string_t& escrito) override {
        return Poner(ValorDeDiario::Clase::Numero, escrito);
    }
    bool string(string_t& valor) override { return Poner(ValorDeDiario::Clase::Texto, DesdeUtf8ConFaltas(valor)); }
    bool start_object(std::size_t /*cuantos*/) override { return Abrir(ValorDeDiario::Clase::Objeto); }
    bool start_array(std::size_t /*cuantos*/) override { return Abrir(ValorDeDiario::Clase::Lista); }
    bool key(string_t& valor) override {
        nombre_ = DesdeUtf8ConFaltas(valor);
        return true;
    }
    bool end_object() override { return Cerrar(); }
    bool end_array() override { return Cerrar(); }
    bool parse_error(std::size_t /*lugar*/, const std::string& /*palabra*/, const nlohmann::detail::exception& /*fallo*/) override {
        return false;
    }

private:
    // The list or object that is open keeps its place while parts are put into it: only the last one grows.
    bool Poner(ValorDeDiario::Clase clase, std::string texto) {
        if (abiertos_.empty()) return false;
        abiertos_.back()->partes.push_back({clase, std::move(nombre_), std::move(texto), {}});
        nombre_.clear();
        return true;
    }
    bool Abrir(ValorDeDiario::Clase clase) {
        if (abiertos_.empty()) {
            raiz.clase = clase;
            abiertos_.push_back(&raiz);
            return clase == ValorDeDiario::Clase::Objeto;
        }
        if (abiertos_.size() == honduraMaxima || !Poner(clase, {})) return false;
        abiertos_.push_back(&abiertos_.back()->partes.back());
        return true;
    }
    bool Cerrar() {
        abiertos_.pop_back();
        return true;
    }

    std::vector<ValorDeDiario*> abiertos_;
    std::string nombre_;
};

}  // namespace

const ValorDeDiario* ValorDeDiario::Buscar(std::string_view miembro) const {
    const auto lugar = std::find_if(partes.begin(), partes.end(), [&](const auto& parte) { return parte.nombre == miembro; });
    return lugar == partes.end() ? nullptr : &*lugar;
}

std::string_view ValorDeDiario::TextoDe(std::string_view miembro) const {
    const auto* const valor = Buscar(miembro);
    return valor == nullptr ? std::string_view() : std::string_view(valor->texto);
}

const std::vector<ValorDeDiario>& ValorDeDiario::PartesDe(std::string_view miembro) const {
    static const std::vector<ValorDeDiario> ninguna;
    const auto* const valor = Buscar(miembro);
    return valor == nullptr ? ninguna : valor->partes;
}

std::optional<ValorDeDiario> LeerLineaDeDiario(std::string_view linea) {
    LectorDeEvento lector;
    if (!nlohmann::json::sax_parse(linea.begin(), linea.end(), &lector) || lector.raiz.TextoDe("event").empty())
        return std::nullopt;
    return std::move(lector.raiz);
}

std::string TextoDeMensajeDeDiario(const ValorDeDiario& mensaje) {
    std::string texto;
    for (const char* parte : {"type", "id", "number", "text"}) {
        if (!texto.empty()) texto += ' ';
        texto += mensaje.TextoDe(parte);
    }
    return texto;
}

}  // namespace qor
