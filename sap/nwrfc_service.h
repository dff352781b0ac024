#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "sap/service.h"

// The service over SAP's NetWeaver RFC library.
namespace qor {

// What a logon needs. Either an application server with its system number, or a message server with the system's name and a logon
// group. Goes with its password.
struct ParametrosDeLogon {
    ParametrosDeLogon() = default;
    ParametrosDeLogon(const ParametrosDeLogon&) = delete;
    ParametrosDeLogon& operator=(const ParametrosDeLogon&) = delete;
    ~ParametrosDeLogon() { BorrarClave(); }

    std::string servidor;         // application server; empty: by the message server
    std::string numeroDeSistema;  // "00" to "99"
    std::string servidorDeMensajes;
    std::string sistema;  // name of the system, three characters
    std::string grupo;    // logon group
    std::string cliente;
    std::string usuario;
    std::string clave;   // password
    std::string idioma;  // "EN"; empty for the user's own
    std::string ruta;    // SAP router string; empty without one

    // Overwrites the password's bytes.
    void BorrarClave();
    // Takes all of another one, whose password is overwritten.
    void Tomar(ParametrosDeLogon& otros);
};

// Lets the user fill the parameters; false when the user backs out.
using DialogoDeLogon = std::function<bool(ParametrosDeLogon& parametros)>;

// Whether a SAP router string holds the password of a router: a segment /W/ or /P/.
bool TieneClave(std::string_view ruta);

// Time limits are what the system may take; 0 is none. When one has passed, the connection is given up, and the operation counts as
// failed however it may end.
struct OpcionesNWRFC {
    std::string biblioteca;                         // path of libsapnwrfc.so; empty for the loader's search
    std::chrono::milliseconds limiteDeLlamada{0};   // a call
    std::chrono::milliseconds limiteDeConexion{0};  // opening, testing and closing a connection, the description of a function
};

// Throws FalloDelServicio when the library is missing or too old. The password is overwritten as soon as the logon is over.
std::unique_ptr<ServicioRFC> CrearServicioNWRFC(const OpcionesNWRFC& opciones, DialogoDeLogon dialogo);

}  // namespace qor
