#pragma once

#include <QString>
#include <functional>

#include "editor/window.h"
#include "input/kinds.h"

namespace qor {

// What the user says of the values of fields, which is kept beside the document, while it is changed in a window.
class ControlesDelDocumento {
public:
    // Reads those beside the document. `alGuardarDocumento` is called where a document had to be saved for them.
    ControlesDelDocumento(Ventana& ventana, std::function<void()> alGuardarDocumento);

    const ClasesDeCampos& Clases() const { return clases_; }
    void Poner(const std::string& campo, const ClaseDeCampo& clase);
    bool Cambiados() const { return cambiados_; }
    // Why those beside the document can't be read; empty where they can.
    const QString& Fallo() const { return fallo_; }

    // False where the user does not want it, or it failed, which was told then.
    bool Guardar();
    // Asks what becomes of changes. False: the window is to stay open.
    bool PuedenDejarse();

private:
    Ventana& ventana_;
    std::function<void()> alGuardarDocumento_;
    ClasesDeCampos clases_;
    bool cambiados_ = false;
    QString fallo_;
};

}  // namespace qor
