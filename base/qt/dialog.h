#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/messages.h"

class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;

namespace qor {

class CajaDeLectura;

// Opens a help page, named by the number of its message, above the window that asks for it.
using AbrirAyuda = std::function<void(int mensaje, QWidget* ventana)>;

// Holds the number of the message that names a dialog's help page, for the boxes that come up above it.
constexpr const char* propiedadDePagina = "paginaDeAyuda";

// What all dialogs have in common: their name, captions by number, a size by the letters of their font, and one way out. Dialogs
// are modal and keep nothing but references to what they edit.
class Dialogo : public QDialog {
    Q_OBJECT
public:
    Dialogo(const TextosIdioma& textos, const char* nombre, QWidget* padre);

    // Every way of closing ends here: a button, Esc, the window's own cross.
    void done(int resultado) final;

    void setVisible(bool visible) override;

    // The dialogs' buttons take no Enter by themselves; the default one does.
    QPushButton* NuevoBoton(const char* nombre, const QString& rotulo);

protected:
    // Asked before the dialog closes. False keeps it open.
    virtual bool PuedeCerrar() { return true; }

    const TextosIdioma& Textos() const { return textos_; }
    QString Rotulo(int mensaje) const;
    QString Palabra(int numero) const;
    void PonerTitulo(const std::string& titulo);

    QLabel* NuevoRotulo(const char* nombre, const QString& texto, QWidget* companero = nullptr);
    // A longer text, broken into lines.
    QLabel* NuevaExplicacion(const char* nombre, const QString& texto);
    QGroupBox* NuevoMarco(const char* nombre, const QString& titulo);

    // The help button, and F1. The dialog bears the number of its page in its property `propiedadDePagina`.
    QPushButton* NuevaAyuda(const char* nombre, const QString& rotulo, const AbrirAyuda& ayuda, int mensaje);

    // A row of buttons; the first `aLaIzquierda` ones stand at the left.
    static QLayout* FilaDeBotones(std::initializer_list<QPushButton*> botones, int aLaIzquierda = 0);

    // The first size: so many letters wide and lines high, at most what the screen has for a window.
    void PonerTamano(int letras, int lineas);
    void PonerTamano(QSize pedido);
    // So large that the whole text in the box can be seen.
    void PonerTamanoPara(const CajaDeLectura& texto);
    int AnchoDeLetras(int letras) const;
    int AltoDeLineas(int lineas) const;

private:
    // What needs more room than the screen has is scrolled, but for the row of buttons at its end.
    void CaberEnPantalla();

    const TextosIdioma& textos_;
};

// Gives a control of the open dialog the focus. False when no dialog is open, or it has no such control. A view calls it before it
// looks among the controls of the main form.
bool EnfocarEnDialogo(const std::string& control);

}  // namespace qor
