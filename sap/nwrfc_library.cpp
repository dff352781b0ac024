#include "sap/nwrfc_library.h"

#include <filesystem>

#include "base/code_page.h"
#include "base/library.h"
#include "base/paths.h"
#include "sap/utf16.h"

namespace qor::nwrfc {

namespace {

std::shared_ptr<void> Abrir(const std::filesystem::path& ruta) {
    std::string motivo;
    auto modulo = CargarBiblioteca(ruta, "sapucum", motivo);
    if (modulo == nullptr) {
        throw FalloDelServicio("The SAP NetWeaver RFC library can't be loaded: " + DesdeUtf8(motivo).value_or("unknown error") +
                               ".");
    }
    return modulo;
}

std::string VersionDe(void* modulo) {
    auto* const version = reinterpret_cast<RfcGetVersion*>(BuscarEnBiblioteca(modulo, "RfcGetVersion"));
    if (version == nullptr) return {};
    unsigned mayor = 0;
    unsigned menor = 0;
    unsigned parche = 0;
    version(&mayor, &menor, &parche);
    return " (version " + std::to_string(mayor) + "." + std::to_string(menor) + "." + std::to_string(parche) + ")";
}

template <typename Funcion>
void BuscarSiHay(void* modulo, const char* nombre, Funcion*& funcion) {
    funcion = reinterpret_cast<Funcion*>(BuscarEnBiblioteca(modulo, nombre));
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
    biblioteca->modulo = Abrir(ruta.empty() ? std::filesystem::path(NombreDeBiblioteca("sapnwrfc")) : RutaDelSistema(ruta));
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
