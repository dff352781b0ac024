#include "app/arguments.h"

#include <CLI/CLI.hpp>
#include <utility>

namespace qor {

// ---- Opcion ----

Opcion Opcion::Tipo(const char* tipo) const {
    opcion_->type_name(tipo);
    return *this;
}

Opcion Opcion::Descripcion(const char* descripcion) const {
    opcion_->description(descripcion);
    return *this;
}

Opcion Opcion::Obligatoria() const {
    opcion_->required();
    return *this;
}

Opcion Opcion::Necesita(const Opcion& otra) const {
    opcion_->needs(otra.opcion_);
    return *this;
}

Opcion Opcion::Excluye(const Opcion& otra) const {
    opcion_->excludes(otra.opcion_);
    return *this;
}

Opcion Opcion::UnaDe(const std::vector<std::string>& valores) const {
    opcion_->check(CLI::IsMember(valores));
    return *this;
}

Opcion Opcion::Entre(int menor, int mayor) const {
    opcion_->check(CLI::Range(menor, mayor));
    return *this;
}

Opcion Opcion::Segun(const std::function<std::string(const std::string&)>& juzgar) const {
    opcion_->check(CLI::Validator([juzgar](const std::string& texto) { return juzgar(texto); }, ""));
    return *this;
}

Opcion Opcion::UnaPorVez() const {
    opcion_->allow_extra_args(false)->take_all();
    return *this;
}

Opcion Opcion::Cuantos(int minimo, int maximo) const {
    opcion_->expected(minimo, maximo);
    return *this;
}

// ---- Orden ----

Orden Orden::Suborden(const char* nombre, const char* descripcion) const {
    return Orden(orden_->add_subcommand(nombre, descripcion));
}

Orden Orden::Grupo(const char* nombre, const char* descripcion) const {
    return Orden(orden_->add_option_group(nombre, descripcion));
}

Opcion Orden::Dato(const char* nombre, std::string& valor, const std::string& descripcion) const {
    return Opcion(orden_->add_option(nombre, valor, descripcion));
}

Opcion Orden::Dato(const char* nombre, std::optional<std::string>& valor, const std::string& descripcion) const {
    return Opcion(orden_->add_option(nombre, valor, descripcion));
}

Opcion Orden::Dato(const char* nombre, std::vector<std::string>& valores, const std::string& descripcion) const {
    return Opcion(orden_->add_option(nombre, valores, descripcion));
}

Opcion Orden::Dato(const char* nombre, int& valor, const std::string& descripcion) const {
    return Opcion(orden_->add_option(nombre, valor, descripcion));
}

Opcion Orden::Dato(const char* nombre, std::int64_t& valor, const std::string& descripcion) const {
    return Opcion(orden_->add_option(nombre, valor, descripcion));
}

Opcion Orden::Dato(const char* nombre, std::uint64_t& valor, const std::string& descripcion) const {
    return Opcion(orden_->add_option(nombre, valor, descripcion));
}

Opcion Orden::Marca(const char* nombre, bool& valor, const std::string& descripcion) const {
    return Opcion(orden_->add_flag(nombre, valor, descripcion));
}

void Orden::Pie(const char* texto) const { orden_->footer(texto); }

void Orden::PedirUnaOpcion() const { orden_->require_option(1); }

void Orden::PedirSuborden() const { orden_->require_subcommand(1); }

void Orden::DejarPasar() const { orden_->fallthrough(); }

void Orden::AlElegir(std::function<void()> accion) const { orden_->callback(std::move(accion)); }

// ---- LineaDeOrdenes ----

LineaDeOrdenes::LineaDeOrdenes(const char* nombre, const char* descripcion)
    : programa_(std::make_unique<CLI::App>(descripcion, nombre)) {
    Raiz().PedirSuborden();
    Raiz().DejarPasar();
}

LineaDeOrdenes::~LineaDeOrdenes() = default;

Orden LineaDeOrdenes::Raiz() const { return Orden(programa_.get()); }

void LineaDeOrdenes::PonerVersion(const char* version) const {
    programa_->set_version_flag("--version", version, "Print the version and exit");
}

std::optional<std::string> LineaDeOrdenes::Leer(const std::vector<std::string>& argumentos) const {
    // The parser takes the arguments from the back. For it "--name=" has no value and would take the next argument, so an empty
    // value is passed as an argument of its own.
    std::vector<std::string> alReves;
    for (auto argumento = argumentos.rbegin(); argumento != argumentos.rend(); ++argumento) {
        const bool valorVacio = argumento->starts_with("--") && argumento->find('=') == argumento->size() - 1;
        if (valorVacio) alReves.emplace_back();
        alReves.push_back(valorVacio ? argumento->substr(0, argumento->size() - 1) : *argumento);
    }
    try {
        programa_->parse(std::move(alReves));
    } catch (const CLI::CallForVersion& version) {
        return std::string(version.what()) + '\n';
    } catch (const CLI::Success&) {
        return Ayuda();
    } catch (const CLI::ParseError& error) {
        throw MalUso(error.what());
    }
    return std::nullopt;
}

std::string LineaDeOrdenes::Ayuda() const { return programa_->help(); }

}  // namespace qor
