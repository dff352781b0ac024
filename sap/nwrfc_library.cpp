#include "sap/nwrfc_library.h"

#include <dlfcn.h>

#include <filesystem>

#include "base/code_page.h"
#include "base/paths.h"
#include "sap/utf16.h"

namespace qor::nwrfc {

namespace {

constexpr const char* nombreDeBiblioteca = "libsapnwrfc.so";
constexpr const char* bibliotecaDeTextos = "libsapucum.so";

std::string ErrorDelCargador() {
    const char* const error = ::dlerror();
    return DesdeUtf8(error == nullptr ? "unknown error" : error).value_or("unknown error");
}

std::shared_ptr<void> Abrir(const std::filesystem::path& ruta) {
    // The library needs its companion, which the loader doesn't look for beside it.
    if (ruta.has_parent_path()) ::dlopen((ruta.parent_path() / bibliotecaDeTextos).c_str(), RTLD_NOW | RTLD_GLOBAL);
    // It stays in the process for good: it may have threads of its own.
    void* const modulo = ::dlopen(ruta.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (modulo == nullptr) {
        throw FalloDelServicio("The SAP NetWeaver RFC library can't be loaded: " + ErrorDelCargador() + ".");
    }
    return {modulo, [](void* abierto) { ::dlclose(abierto); }};
}

std::string VersionDe(void* modulo) {
    auto* const version = reinterpret_cast<RfcGetVersion*>(::dlsym(modulo, "RfcGetVersion"));
    if (version == nullptr) return {};
    unsigned mayor = 0;
    unsigned menor = 0;
    unsigned parche = 0;
    version(&mayor, &menor, &parche);
    return " (version " + std::to_string(mayor) + "." + std::to_string(menor) + "." + std::to_string(parche) + ")";
}

template <typename Funcion>
void BuscarSiHay(void* modulo, const char* nombre, Funcion*& funcion) {
    funcion = reinterpret_cast<Funcion*>(::dlsym(modulo, nombre));
}

template <typename Funcion>
void Buscar(void* modulo, const char* nombre, Funcion*& funcion) {
    BuscarSiHay(modulo, nombre, funcion);
    if (funcion == nullptr) {
        throw FalloDelServicio("The SAP NetWeaver RFC library" + VersionDe(modulo) + " has no function " + nombre +
                               ". Please install a newer release of it.");
    }
}

}  // namespace

std::shared_ptr<const Biblioteca> Biblioteca::Cargar(const std::string& ruta) {
    auto biblioteca = std::make_shared<Biblioteca>();
    biblioteca->modulo = Abrir(ruta.empty() ? std::filesystem::path(nombreDeBiblioteca) : RutaDelSistema(ruta));
    void* const modulo = biblioteca->modulo.get();
    Buscar(modulo, "RfcOpenConnection", biblioteca->OpenConnection);
    Buscar(modulo, "RfcCloseConnection", biblioteca->CloseConnection);
    Buscar(modulo, "RfcPing", biblioteca->Ping);
    BuscarSiHay(modulo, "RfcCancel", biblioteca->Cancel);
    Buscar(modulo, "RfcGetConnectionAttributes", biblioteca->GetConnectionAttributes);
    Buscar(modulo, "RfcGetFunctionDesc", biblioteca->GetFunctionDesc);
    Buscar(modulo, "RfcCreateFunction", biblioteca->CreateFunction);
    Buscar(modulo, "RfcDestroyFunction", biblioteca->DestroyFunction);
    Buscar(modulo, "RfcInvoke", biblioteca->Invoke);
    Buscar(modulo, "RfcSetString", biblioteca->SetString);
    Buscar(modulo, "RfcGetString", biblioteca->GetString);
    Buscar(modulo, "RfcGetTable", biblioteca->GetTable);
    Buscar(modulo, "RfcDeleteAllRows", biblioteca->DeleteAllRows);
    Buscar(modulo, "RfcAppendNewRow", biblioteca->AppendNewRow);
    Buscar(modulo, "RfcGetRowCount", biblioteca->GetRowCount);
    Buscar(modulo, "RfcMoveTo", biblioteca->MoveTo);
    Buscar(modulo, "RfcGetCurrentRow", biblioteca->GetCurrentRow);
    Buscar(modulo, "RfcDescribeType", biblioteca->DescribeType);
    Buscar(modulo, "RfcGetFieldDescByIndex", biblioteca->GetFieldDescByIndex);
    return biblioteca;
}

}  // namespace qor::nwrfc
