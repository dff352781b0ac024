#pragma once

#include <functional>
#include <memory>
#include <string>

#include "app/start_up.h"
#include "base/view.h"
#include "editor/window.h"
#include "generator/request.h"
#include "sap/session.h"

class QWidget;

// What the menu Connection and the buttons "while connected" of the main form do. The form enables them by the state that is
// answered here, and shows the editor anew behind each of them.
namespace qor {

class AccionesDeConexion {
public:
    virtual ~AccionesDeConexion() = default;

    // Whether there is a system to log on to: a real one can be reached, or the practice system was chosen last. Else the program
    // starts without a logon.
    virtual bool Disponible() const = 0;
    virtual bool Conectado() const = 0;
    // Connected to the practice system.
    virtual bool EsDePractica() const = 0;
    // Caption of the label; shown while connected.
    virtual std::string ConnectionStatus() const = 0;

    virtual void Logon() = 0;
    virtual void Logoff() = 0;
    virtual void ButtonOnlineSHDB() = 0;
    virtual void ButtonOnlineSM35() = 0;
    virtual void ButtonOnlineAnchos() = 0;
    virtual void ButtonOnlinePublish() = 0;
    virtual void ButtonOnlinePublishLocal() = 0;
    // Puts a recording of the user's choice into the practice system.
    virtual void GuardarGrabacion() = 0;

    // What the generator needs of the connected system; null while there is none.
    virtual SistemaConectado* Sistema() = 0;
    // For the update of the BAPI catalogue; null where there are no connections.
    virtual SesionSAP* Sesion() = 0;
};

// All that a connection works with. Everything belongs to the main form and outlives the connection.
struct EntornoDeConexion {
    Programa& programa;
    Ventana& ventana;
    Vista& vista;
    QWidget* padre;                 // of its dialogs
    std::function<void()> mostrar;  // shows the connection anew, in the middle of a command
};

using FabricaDeConexion = std::function<std::unique_ptr<AccionesDeConexion>(const EntornoDeConexion&)>;

// Where no library for connections is there: never connected, and the commands say so.
std::unique_ptr<AccionesDeConexion> SinConexion(Vista& vista);

}  // namespace qor
