#pragma once

#include <QObject>
#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "editor/window.h"

class QCheckBox;
class QComboBox;
class QPushButton;
class QRadioButton;

namespace qor {

class CajaDeLinea;
class CajaDeTexto;

// Ties the controls of the main form to what they show. A control shows its piece of the state whenever `MostrarTodo` runs; what a
// user does to it runs as an event, behind which the main form shows everything anew. Showing makes no events.
class Lazos : public QObject {
public:
    using Accion = std::function<void()>;
    // Runs an action and shows the state behind it; false when the action was not begun.
    using Ejecutor = std::function<bool(const Accion&)>;

    // What the main form runs.
    struct Ejecutores {
        Ejecutor evento;
        Ejecutor comando;
        Accion guardarAjustes;  // saves the user's settings
    };

    Lazos(Ventana& ventana, Ejecutores ejecutores) : ventana_(ventana), ejecutores_(std::move(ejecutores)) {}

    // ---- Events ----

    // What happens to a control or a cell.
    void Hacer(const Accion& accion) const;
    // What a user asks for by a button, a tool button, a menu or a key of the form: a command, which first leaves the cell that has
    // the focus (editor/commands.h).
    bool Mandar(const Accion& accion) const;
    // A change of a control: an event, but nothing while the state is shown.
    void Cambio(const Accion& accion) const;
    // The same for a choice that is a setting of the user's, which is saved at once.
    void CambioDeAjuste(const Accion& accion) const;
    // From now on nothing runs any more: the controls go with their form.
    void Callar() { callado_ = true; }

    // ---- What is shown ----

    // Adds what shows a piece of the state.
    void AlMostrar(Accion paso) { pasos_.push_back(std::move(paso)); }
    void MostrarTodo();
    // Runs something that changes controls without a user.
    template <typename F>
    void SinCambios(F accion) {
        const bool antes = std::exchange(mostrando_, true);
        accion();
        mostrando_ = antes;
    }

    // ---- Controls tied to an option of the specification, each with its object name ----

    QCheckBox* Casilla(const char* nombre, QWidget* padre, int Opciones::*opcion);
    // Two buttons of which one is on: the first where the option is true.
    std::array<QRadioButton*, 2> Par(const char* primero, const char* segundo, QWidget* padre, bool Opciones::*opcion);
    // `cambiar` takes a typed text over in the place of CambiarOpcion.
    CajaDeLinea* Linea(const char* nombre, QWidget* padre, std::string Opciones::*opcion,
                       void (*cambiar)(Ventana&, const std::string&) = nullptr);
    CajaDeTexto* Texto(const char* nombre, QWidget* padre, std::string Opciones::*opcion);
    QComboBox* Combo(const char* nombre, QWidget* padre, std::string Opciones::*opcion);

    // ---- Others ----

    // A check box for a setting of the user's.
    QCheckBox* CasillaDeAjuste(const char* nombre, QWidget* padre, const std::function<bool()>& leer,
                               const std::function<void(bool)>& cambiar);
    // A text box with the key filter of its name, tied to nothing.
    CajaDeLinea* CajaFiltrada(const char* nombre, QWidget* padre);
    // The box holds a setting of the user's, which is saved when the box is left or Enter is pressed.
    void GuardarAlDejar(const CajaDeLinea* caja);
    // A push button that runs a command and takes no focus from a cell when it is clicked.
    QPushButton* Boton(const char* nombre, QWidget* padre, const Accion& accion);

private:
    Ventana& ventana_;
    Ejecutores ejecutores_;
    std::vector<Accion> pasos_;
    bool mostrando_ = false;
    bool callado_ = false;
};

}  // namespace qor
