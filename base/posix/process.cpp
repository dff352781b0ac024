#include "base/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace qor {

namespace {

// What a handler of signals can reach.
volatile std::sig_atomic_t hayInterrupcion = 0;

void AlInterrumpir(int /*senal*/) { hayInterrupcion = 1; }

}  // namespace

void PrepararProceso() {
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        // The lowest free number is given, which is this one.
        if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF && ::open("/dev/null", O_RDWR) < 0) return;
    }
    std::signal(SIGXFSZ, SIG_IGN);
}

std::vector<std::string> ArgumentosDelProceso(int cantidad, char** argumentos) { return {argumentos + 1, argumentos + cantidad}; }

std::string VariableDeEntorno(const char* nombre) {
    const char* const valor = std::getenv(nombre);
    return valor == nullptr ? "" : valor;
}

std::filesystem::path RutaDelPrograma() {
    std::error_code ignorado;
    return std::filesystem::read_symlink("/proc/self/exe", ignorado);
}

long NumeroDeProceso() { return ::getpid(); }

bool EsTerminal(int descriptor) { return ::isatty(descriptor) == 1; }

struct Interrupcion::Anterior {
    struct sigaction deInt {};
    struct sigaction deTerm {};
};

Interrupcion::Interrupcion() : anterior_(std::make_unique<Anterior>()) {
    hayInterrupcion = 0;
    struct sigaction accion {};
    accion.sa_handler = AlInterrumpir;
    accion.sa_flags = static_cast<int>(SA_RESETHAND);
    sigemptyset(&accion.sa_mask);
    sigaction(SIGINT, &accion, &anterior_->deInt);
    sigaction(SIGTERM, &accion, &anterior_->deTerm);
}

Interrupcion::~Interrupcion() {
    sigaction(SIGINT, &anterior_->deInt, nullptr);
    sigaction(SIGTERM, &anterior_->deTerm, nullptr);
}

bool Interrupcion::Pedida() const { return hayInterrupcion != 0; }

}  // namespace qor
