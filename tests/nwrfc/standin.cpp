// A shared library with the functions of the NetWeaver RFC library, and a small system behind them. Passwords other than "right"
// are refused, the host "down" can't be reached. The report runner answers each source line with itself in a row of 256 characters,
// and does other things for some programs:
//   REPORT LOST.    the connection breaks
//   REPORT HANG.    runs until it is cancelled
//   REPORT DENIED.  an exception of the function module
//   REPORT LONG.    answers one row of 1000 characters
// Built with STANDIN_OLD it is an earlier release, which lacks a function.

#include "tests/nwrfc/standin.h"

#include <algorithm>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "sap/nwrfc_api.h"

namespace qor::nwrfc {

struct Conexion {
    std::mutex mutex;
    std::condition_variable aviso;
    bool cancelada = false;
    bool rota = false;
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

int conexiones = 0;
int funciones = 0;
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

[[maybe_unused]] void Agregar(Contenedor& tabla, const char16_t* campo, std::u16string texto, std::size_t ancho) {
    texto.resize(ancho, u' ');
    tabla.filas.push_back({nullptr, tabla.tipo, {{campo, texto}}, {}, {}, 0});
}

[[maybe_unused]] RFC_RC Correr(Conexion& conexion, Contenedor& funcion, RFC_ERROR_INFO* error) {
    if (funcion.valores[u"MODE"] != u"F") return Error(error, RFC_INVALID_PARAMETER, u"", u"MODE");
    auto& salida = funcion.tablas.at(u"WRITES");
    const auto& programa = funcion.tablas.at(u"PROGRAM").filas;
    const std::u16string primera = programa.empty() ? u"" : programa.front().valores.at(u"LINE");
    if (primera == u"REPORT LOST.") {
        conexion.rota = true;
        return Error(error, RFC_COMMUNICATION_FAILURE, u"RFC_COMMUNICATION_FAILURE", u"connection to partner broken");
    }
    if (primera == u"REPORT DENIED.") return Error(error, RFC_ABAP_EXCEPTION, u"NO_AUTHORITY", u"");
    if (primera == u"REPORT HANG.") {
        std::unique_lock cerrojo(conexion.mutex);
        conexion.aviso.wait(cerrojo, [&] { return conexion.cancelada; });
        return Error(error, RFC_CANCELED, u"RFC_CANCELED", u"cancelled");
    }
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
    ++conexiones;
    return new Conexion;
}

RFC_RC RfcCloseConnection(Conexion* conexion, RFC_ERROR_INFO* error) {
    delete conexion;
    --conexiones;
    return Bien(error);
}

RFC_RC RfcPing(Conexion* conexion, RFC_ERROR_INFO* error) {
    return conexion->rota ? Error(error, RFC_INVALID_HANDLE, u"RFC_INVALID_HANDLE", u"closed") : Bien(error);
}

RFC_RC RfcCancel(Conexion* conexion, RFC_ERROR_INFO* error) {
    {
        const std::lock_guard cerrojo(conexion->mutex);
        conexion->cancelada = true;
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
    if (funcion->funcion->nombre == u"RFC_ABAP_INSTALL_AND_RUN") return Correr(*conexion, *funcion, error);
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
