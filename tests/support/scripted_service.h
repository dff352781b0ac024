#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "sap/session.h"

namespace qor::pruebas {

// What a scripted service answers, and what it was asked. Shared by the test and every service made from it.
struct Guion {
    // The outcome of a Call: the rows of the output table, each with its cells.
    struct Lista {
        std::vector<std::vector<std::string>> filas;
    };
    std::deque<std::optional<Lista>> llamadas;  // in order; nothing is a call that fails, and so is one past the end

    bool logon = true;    // false: the user backs out of the dialog
    bool usable = true;   // what a silent logon answers
    bool abierta = true;  // false: the connection is lost over the next operation that fails
    std::string fallaEn;  // operation that throws, such as "Logon" or "Add"
    std::string ultimoError;
    std::string cliente = "100";
    std::string sistema = "DEV";

    // One line for each operation that a user could see on the wire: "Logon", "Logoff", "Add NAME", "PARAMETER = value", "TABLE <
    // row" for each row sent, and "Call".
    std::vector<std::string> conversacion;

    // A list of one column.
    void Responder(std::initializer_list<const char*> filas);
    void Responder(const std::vector<std::string>& filas);
    void Fallar() { llamadas.emplace_back(std::nullopt); }
    std::vector<std::string> TomarConversacion();

    // The next operation of this name throws.
    void Paso(const char* operacion) const;
};

// A session whose services play the script. Names are the known ones; the query reports are one line each, such as "inf005
// <datatype>".
SesionSAP SesionDeGuion(const std::shared_ptr<Guion>& guion);

// The same, logged on, in a development system of a release; its conversation is emptied.
SesionSAP SesionConectada(const std::shared_ptr<Guion>& guion);

}  // namespace qor::pruebas
