// A shared library with the functions of the NetWeaver RFC library, and a small system behind them. Passwords other than "right"
// are refused, the host "down" can't be reached, and the host "slow" takes a fifth of a second to open. The report runner answers
// each source line with itself in a row of 256 characters, and does other things for some programs:
//   REPORT CODE n.  ends with a code
//   REPORT HANG.    runs until it is cancelled
//   REPORT LATE.    runs until it is cancelled, and ends well all the same
//   REPORT WAIT n.  takes n milliseconds, and then ends well
//   REPORT MUTE.    ends well; behind it the system answers no test until it is cancelled
//   REPORT LONG.    answers one row of 1000 characters
// The description of Z_HANG is never there until it is cancelled. A connection that is cancelled without a call is broken.
// Built with STANDIN_OLD it is an earlier release, which lacks a function.

#include "tests/nwrfc/standin.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "sap/nwrfc_api.h"

namespace qor::nwrfc {

struct Conexion {
    std::mutex mutex;
    std::condition_variable aviso;
    bool ocupada = false;
    bool cancelada = false;
    bool muda = false;
    bool rota = false;

    void Empezar() {
        const std::lock_guard cerrojo(mutex);
        ocupada = true;
    }
    void Terminar() {
        const std::lock_guard cerrojo(mutex);
        ocupada = false;
    }
    void EsperarCancelacion() {
        std::unique_lock cerrojo(mutex);
        aviso.wait(cerrojo, [this] { return cancelada; });
    }
};

struct DescripcionDeTipo {
    std::vector<std::u16string> campos;
};

struct DescripcionDeFuncion {
    std::u16string nombre;
    std::vector<std::u16string> parametros;
    std::map<std::u16string, DescripcionDeTipo> tablas;
};

struct Contenedor {
    const DescripcionDeFuncion* funcion = nullptr;
    DescripcionDeTipo* tipo = nullptr;
    std::map<std::u16string, std::u16string> valores;
    std::map<std::u16string, Contenedor> tablas;
    std::vector<Contenedor> filas;
    unsigned actual = 0;
};

}  // namespace qor::nwrfc

namespace {

using namespace qor::nwrfc;

std::atomic<int> conexiones = 0;
std::atomic<int> funciones = 0;
std::u16string parametros;

std::map<std::u16string, DescripcionDeFuncion> modulos = {
    {u"RFC_ABAP_INSTALL_AND_RUN", {u"RFC_ABAP_INSTALL_AND_RUN", {u"MODE"}, {{u"PROGRAM", {{u"LINE"}}}, {u"WRITES", {{u"ZEILE"}}}}}},
    {u"RFC_FUNCTION_SEARCH", {u"RFC_FUNCTION_SEARCH", {u"FUNCNAME"}, {{u"FUNCTIONS", {{u"FUNCNAME", u"GROUPNAME"}}}}}}};

RFC_RC Error(RFC_ERROR_INFO* error, RFC_RC codigo, const std::u16string& clave, const std::u16string& mensaje) {
    *error = {};
    error->code = codigo;
    clave.copy(error->key, 127);
    mensaje.copy(error->message, 511);
    return codigo;
}

RFC_RC Bien(RFC_ERROR_INFO* error) {
    error->code = RFC_OK;
    return RFC_OK;
}

// The number behind the two words of a report's first line.
[[maybe_unused]] int NumeroDe(const std::u16string& linea) {
    int numero = 0;
    for (std::size_t i = 12; i < linea.size() && linea[i] >= u'0' && linea[i] <= u'9'; ++i)
        numero = numero * 10 + (linea[i] - u'0');
    return numero;
}

[[maybe_unused]] void Agregar(Contenedor& tabla, const char16_t* campo, std::u16string texto, std::size_t ancho) {
    texto.resize(ancho, u' ');
    tabla.filas.push_back({nullptr, tabla.tipo, {{campo, texto}}, {}, {}, 0});
}

[[maybe_unused]] RFC_RC Correr(Conexion& conexion, Contenedor& funcion, RFC_ERROR_INFO* error) {
    if (funcion.valores[u"MODE"] != u"F") return Error(error, RFC_INVALID_PARAMETER, u"", u"MODE");
    auto& salida = funcion.tablas.at(u"WRITES");
    const auto& programa = funcion.tablas.at(u"PROGRAM").filas;
    const std::u16string primera = programa.empty() ? u"" : programa.front().valores.at(u"LINE");
    if (primera.starts_with(u"REPORT CODE ")) {
        return Error(error, static_cast<RFC_RC>(NumeroDe(primera)), u"CODE", primera.substr(12));
    }
    if (primera.starts_with(u"REPORT WAIT ")) std::this_thread::sleep_for(std::chrono::milliseconds(NumeroDe(primera)));
    if (primera == u"REPORT MUTE.") conexion.muda = true;
    if (primera == u"REPORT HANG." || primera == u"REPORT LATE.") conexion.EsperarCancelacion();
    if (primera == u"REPORT HANG.") return Error(error, RFC_CANCELED, u"RFC_CANCELED", u"cancelled");
    if (primera == u"REPORT LONG.") Agregar(salida, u"ZEILE", std::u16string(999, u'x') + u"y", 1000);
    for (const auto& fila : programa) Agregar(salida, u"ZEILE", fila.valores.at(u"LINE"), 256);
    return Bien(error);
}

}  // namespace

extern "C" {

int ConexionesAbiertas() { return conexiones; }
int FuncionesVivas() { return funciones; }
const char16_t* UltimosParametros() { return parametros.c_str(); }

const SAP_UC* RfcGetVersion(unsigned* major, unsigned* minor, unsigned* patch) {
    *major = 7500;
    *minor = 0;
    *patch = 1;
    return u"750";
}

Conexion* RfcOpenConnection(const RFC_CONNECTION_PARAMETER* lista, unsigned cantidad, RFC_ERROR_INFO* error) {
    parametros.clear();
    std::map<std::u16string, std::u16string> valores;
    for (unsigned i = 0; i < cantidad; ++i) {
        parametros += std::u16string(lista[i].name) + u"=" + lista[i].value + u";";
        valores[lista[i].name] = lista[i].value;
    }
    if (valores[u"ASHOST"] == u"down") {
        Error(error, RFC_COMMUNICATION_FAILURE, u"RFC_COMMUNICATION_FAILURE", u"partner 'down' not reached");
        return nullptr;
    }
    if (valores[u"PASSWD"] != u"right") {
        Error(error, RFC_LOGON_FAILURE, u"RFC_LOGON_FAILURE", u"Name or password is incorrect (caf\u00E9 \u20AC \u0416)");
        return nullptr;
    }
    if (valores[u"ASHOST"] == u"slow") std::this_thread::sleep_for(std::chrono::milliseconds(200));
    ++conexiones;
    return new Conexion;
}

RFC_RC RfcCloseConnection(Conexion* conexion, RFC_ERROR_INFO* error) {
    delete conexion;
    --conexiones;
    return Bien(error);
}

RFC_RC RfcPing(Conexion* conexion, RFC_ERROR_INFO* error) {
    if (conexion->muda) conexion->EsperarCancelacion();
    return conexion->rota ? Error(error, RFC_INVALID_HANDLE, u"RFC_INVALID_HANDLE", u"closed") : Bien(error);
}

RFC_RC RfcCancel(Conexion* conexion, RFC_ERROR_INFO* error) {
    {
        const std::lock_guard cerrojo(conexion->mutex);
        conexion->cancelada = true;
        if (!conexion->ocupada) conexion->rota = true;
    }
    conexion->aviso.notify_one();
    return Bien(error);
}

RFC_RC RfcGetConnectionAttributes(Conexion* /*conexion*/, RFC_ATTRIBUTES* atributos, RFC_ERROR_INFO* error) {
    *atributos = {};
    std::u16string(u"DEV     ").copy(atributos->sysId, 8);
    std::u16string(u"100").copy(atributos->client, 3);
    return Bien(error);
}

DescripcionDeFuncion* RfcGetFunctionDesc(Conexion* conexion, const SAP_UC* nombre, RFC_ERROR_INFO* error) {
    if (nombre == std::u16string(u"Z_HANG")) conexion->EsperarCancelacion();
    const auto modulo = modulos.find(nombre);
    if (!conexion->rota && modulo != modulos.end()) return &modulo->second;
    Error(error, RFC_ABAP_EXCEPTION, u"FU_NOT_FOUND", u"ID:FL Type:E Number:046 " + std::u16string(nombre));
    return nullptr;
}

Contenedor* RfcCreateFunction(DescripcionDeFuncion* descripcion, RFC_ERROR_INFO* error) {
    Bien(error);
    ++funciones;
    auto* const funcion = new Contenedor;
    funcion->funcion = descripcion;
    for (auto& [nombre, tipo] : descripcion->tablas) funcion->tablas[nombre].tipo = &tipo;
    return funcion;
}

RFC_RC RfcDestroyFunction(Contenedor* funcion, RFC_ERROR_INFO* error) {
    delete funcion;
    --funciones;
    return Bien(error);
}

#ifndef STANDIN_OLD
RFC_RC RfcInvoke(Conexion* conexion, Contenedor* funcion, RFC_ERROR_INFO* error) {
    if (funcion->funcion->nombre == u"RFC_ABAP_INSTALL_AND_RUN") {
        conexion->Empezar();
        const auto codigo = Correr(*conexion, *funcion, error);
        conexion->Terminar();
        return codigo;
    }
    auto& salida = funcion->tablas.at(u"FUNCTIONS");
    Agregar(salida, u"FUNCNAME", funcion->valores[u"FUNCNAME"], 30);
    salida.filas.back().valores[u"GROUPNAME"] = u"SUTL";
    return Bien(error);
}
#endif

RFC_RC RfcSetString(Contenedor* contenedor, const SAP_UC* nombre, const SAP_UC* valor, unsigned largo, RFC_ERROR_INFO* error) {
    const auto& campos = contenedor->tipo != nullptr ? contenedor->tipo->campos : contenedor->funcion->parametros;
    if (std::find(campos.begin(), campos.end(), nombre) == campos.end()) {
        return Error(error, RFC_INVALID_PARAMETER, u"RFC_INVALID_PARAMETER", u"field '" + std::u16string(nombre) + u"' not found");
    }
    contenedor->valores[nombre].assign(valor, largo);
    return Bien(error);
}

RFC_RC RfcGetString(Contenedor* contenedor, const SAP_UC* nombre, SAP_UC* lugar, unsigned tamano, unsigned* largo,
                    RFC_ERROR_INFO* error) {
    const auto& texto = contenedor->valores[nombre];
    *largo = static_cast<unsigned>(texto.size());
    if (texto.size() >= tamano) return Error(error, RFC_BUFFER_TOO_SMALL, u"RFC_BUFFER_TOO_SMALL", u"");
    texto.copy(lugar, texto.size());
    lugar[texto.size()] = 0;
    return Bien(error);
}

RFC_RC RfcGetTable(Contenedor* funcion, const SAP_UC* nombre, Contenedor** tabla, RFC_ERROR_INFO* error) {
    const auto lugar = funcion->tablas.find(nombre);
    if (lugar == funcion->tablas.end()) {
        return Error(error, RFC_INVALID_PARAMETER, u"RFC_INVALID_PARAMETER", u"field '" + std::u16string(nombre) + u"' not found");
    }
    *tabla = &lugar->second;
    return Bien(error);
}

RFC_RC RfcDeleteAllRows(Contenedor* tabla, RFC_ERROR_INFO* error) {
    tabla->filas.clear();
    return Bien(error);
}

Contenedor* RfcAppendNewRow(Contenedor* tabla, RFC_ERROR_INFO* error) {
    Bien(error);
    tabla->filas.push_back({nullptr, tabla->tipo, {}, {}, {}, 0});
    return &tabla->filas.back();
}

RFC_RC RfcGetRowCount(Contenedor* tabla, unsigned* cantidad, RFC_ERROR_INFO* error) {
    *cantidad = static_cast<unsigned>(tabla->filas.size());
    return Bien(error);
}

RFC_RC RfcMoveTo(Contenedor* tabla, unsigned fila, RFC_ERROR_INFO* error) {
    tabla->actual = fila;
    return fila < tabla->filas.size() ? Bien(error) : Error(error, RFC_INVALID_PARAMETER, u"RFC_TABLE_MOVE_EOF", u"");
}

Contenedor* RfcGetCurrentRow(Contenedor* tabla, RFC_ERROR_INFO* error) {
    Bien(error);
    return &tabla->filas.at(tabla->actual);
}

DescripcionDeTipo* RfcDescribeType(Contenedor* contenedor, RFC_ERROR_INFO* error) {
    Bien(error);
    return contenedor->tipo;
}

RFC_RC RfcGetFieldDescByIndex(DescripcionDeTipo* tipo, unsigned campo, RFC_FIELD_DESC* descripcion, RFC_ERROR_INFO* error) {
    if (campo >= tipo->campos.size()) return Error(error, RFC_INVALID_PARAMETER, u"RFC_INVALID_PARAMETER", u"index");
    *descripcion = {};
    tipo->campos[campo].copy(descripcion->name, 30);
    return Bien(error);
}

}  // extern "C"
