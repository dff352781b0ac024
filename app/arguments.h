#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

// The commands of qorgen with their arguments, as they are registered, shown by --help and read. app/arguments.cpp alone knows the
// library that does it. What is registered belongs to the line, and the handles here are good as long as it lives; so are the
// values, which the reading fills in.
namespace qor {

// An argument of a command: an option such as "--file" or "-o,--output", or a positional one such as "DOCUMENT".
class Opcion {
public:
    explicit Opcion(CLI::Option* opcion) : opcion_(opcion) {}

    Opcion Tipo(const char* tipo) const;  // of its value, for the help
    Opcion Descripcion(const char* descripcion) const;
    Opcion Obligatoria() const;
    Opcion Necesita(const Opcion& otra) const;
    Opcion Excluye(const Opcion& otra) const;
    Opcion UnaDe(const std::vector<std::string>& valores) const;
    Opcion Entre(int menor, int mayor) const;
    // The function answers what is wrong with a value; an empty text for nothing.
    Opcion Segun(const std::function<std::string(const std::string&)>& juzgar) const;
    Opcion UnaPorVez() const;                      // one value behind each, as often as it is given
    Opcion Cuantos(int minimo, int maximo) const;  // values

private:
    CLI::Option* opcion_;
};

// A command, or a group of options of it.
class Orden {
public:
    explicit Orden(CLI::App* orden) : orden_(orden) {}

    Orden Suborden(const char* nombre, const char* descripcion) const;
    Orden Grupo(const char* nombre, const char* descripcion) const;

    Opcion Dato(const char* nombre, std::string& valor, const std::string& descripcion) const;
    Opcion Dato(const char* nombre, std::optional<std::string>& valor, const std::string& descripcion) const;
    Opcion Dato(const char* nombre, std::vector<std::string>& valores, const std::string& descripcion) const;
    Opcion Dato(const char* nombre, int& valor, const std::string& descripcion) const;
    Opcion Dato(const char* nombre, std::int64_t& valor, const std::string& descripcion) const;
    Opcion Dato(const char* nombre, std::uint64_t& valor, const std::string& descripcion) const;
    Opcion Marca(const char* nombre, bool& valor, const std::string& descripcion) const;

    void Pie(const char* texto) const;
    void PedirUnaOpcion() const;
    void PedirSuborden() const;
    void DejarPasar() const;  // options of the command above may stand behind this one
    // Called when the command has been read. What it finds wrong it throws as MalUso.
    void AlElegir(std::function<void()> accion) const;

private:
    CLI::App* orden_;
};

// Arguments that are wrong.
class MalUso : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The command line as a whole.
class LineaDeOrdenes {
public:
    LineaDeOrdenes(const char* nombre, const char* descripcion);
    ~LineaDeOrdenes();
    LineaDeOrdenes(const LineaDeOrdenes&) = delete;
    LineaDeOrdenes& operator=(const LineaDeOrdenes&) = delete;

    // The program itself: options that may stand in front of a command and behind it, and the commands.
    Orden Raiz() const;
    void PonerVersion(const char* version) const;

    // Reads arguments, without the name of the program. Nothing where a command is to be run; else the text that was asked for, of
    // the help or the version. Throws MalUso.
    std::optional<std::string> Leer(const std::vector<std::string>& argumentos) const;
    // The help of the command that was read, or of the program.
    std::string Ayuda() const;

private:
    std::unique_ptr<CLI::App> programa_;
};

}  // namespace qor
