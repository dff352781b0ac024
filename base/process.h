#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

// The process and what the operating system tells it; each system has its own file of it.
namespace qor {

// What both programs do first. Descriptors 0 to 2 that are closed are opened onto the null device, so that no file gets one of
// their numbers and messages are never written into it; and a file that grows over the limit of the process is a failed call, no
// signal. What the program writes reaches a terminal as UTF-8, and a file byte for byte.
void PrepararProceso();

// The arguments behind the program's name, in UTF-8.
std::vector<std::string> ArgumentosDelProceso(int cantidad, char** argumentos);

// A variable of the environment, in UTF-8; empty where it isn't set. Where a system has names of its own for HOME, XDG_CONFIG_HOME
// and XDG_DATA_HOME, they answer for them.
std::string VariableDeEntorno(const char* nombre);

// The file of the running program; empty where it can't be had.
std::filesystem::path RutaDelPrograma();

long NumeroDeProceso();

// Whether a terminal stands behind a descriptor.
bool EsTerminal(int descriptor);

// While it lives, the first request to end the process (SIGINT or SIGTERM; on Windows Ctrl+C or Ctrl+Break) is only remembered; a
// second one ends the process.
class Interrupcion {
public:
    Interrupcion();
    ~Interrupcion();
    Interrupcion(const Interrupcion&) = delete;
    Interrupcion& operator=(const Interrupcion&) = delete;

    bool Pedida() const;

private:
    struct Anterior;
    std::unique_ptr<Anterior> anterior_;
};

}  // namespace qor
