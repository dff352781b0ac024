#include "base/process.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace qor {

namespace {

std::string DesdeUtf16(std::wstring_view texto) {
    const int largo = static_cast<int>(texto.size());
    std::string utf8(static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, texto.data(), largo, nullptr, 0, nullptr, nullptr)),
                     '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, texto.data(), largo, utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr);
    return utf8;
}

// Empty where it isn't set.
std::wstring Variable(const wchar_t* nombre) {
    std::wstring valor(32768, L'\0');
    valor.resize(::GetEnvironmentVariableW(nombre, valor.data(), static_cast<DWORD>(valor.size())));
    return valor;
}

UINT paginaAnterior = 0;

// The request comes in a thread of its own.
std::atomic<bool> hayInterrupcion = false;

BOOL WINAPI AlInterrumpir(DWORD clase) {
    if (clase != CTRL_C_EVENT && clase != CTRL_BREAK_EVENT) return FALSE;
    return hayInterrupcion.exchange(true) ? FALSE : TRUE;
}

}  // namespace

void PrepararProceso() {
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        if (::_get_osfhandle(descriptor) == -1 || ::_get_osfhandle(descriptor) == -2) {
            const int nulo = ::_open("NUL", _O_RDWR | _O_BINARY);
            if (nulo < 0) return;
            if (nulo != descriptor) {
                ::_dup2(nulo, descriptor);
                ::_close(nulo);
            }
        }
        ::_setmode(descriptor, _O_BINARY);
    }
    // The console is the user's, and speaks as before when the program has ended.
    paginaAnterior = ::GetConsoleOutputCP();
    if (paginaAnterior != 0 && ::SetConsoleOutputCP(CP_UTF8)) {
        std::atexit([] { ::SetConsoleOutputCP(paginaAnterior); });
    }
}

std::vector<std::string> ArgumentosDelProceso(int /*cantidad*/, char** /*argumentos*/) {
    int cantidad = 0;
    wchar_t** const anchos = ::CommandLineToArgvW(::GetCommandLineW(), &cantidad);
    std::vector<std::string> argumentos;
    for (int i = 1; anchos != nullptr && i < cantidad; ++i) argumentos.push_back(DesdeUtf16(anchos[i]));
    ::LocalFree(anchos);
    return argumentos;
}

std::string VariableDeEntorno(const char* nombre) {
    constexpr std::pair<std::string_view, const wchar_t*> propias[] = {
        {"HOME", L"USERPROFILE"}, {"XDG_CONFIG_HOME", L"APPDATA"}, {"XDG_DATA_HOME", L"LOCALAPPDATA"}};
    std::wstring valor = Variable(std::filesystem::path(nombre).c_str());
    for (const auto& [deOtros, suya] : propias) {
        if (valor.empty() && deOtros == nombre) valor = Variable(suya);
    }
    return DesdeUtf16(valor);
}

std::filesystem::path RutaDelPrograma() {
    std::wstring nombre(32768, L'\0');
    nombre.resize(::GetModuleFileNameW(nullptr, nombre.data(), static_cast<DWORD>(nombre.size())));
    return nombre;
}

long NumeroDeProceso() { return static_cast<long>(::GetCurrentProcessId()); }

// One that takes the sequences by which a line is written over.
bool EsTerminal(int descriptor) {
    const HANDLE mango = reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor));
    DWORD modo = 0;
    return ::GetConsoleMode(mango, &modo) && ::SetConsoleMode(mango, modo | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

struct Interrupcion::Anterior {};

Interrupcion::Interrupcion() {
    hayInterrupcion = false;
    ::SetConsoleCtrlHandler(AlInterrumpir, TRUE);
}

Interrupcion::~Interrupcion() { ::SetConsoleCtrlHandler(AlInterrumpir, FALSE); }

bool Interrupcion::Pedida() const { return hayInterrupcion; }

}  // namespace qor
