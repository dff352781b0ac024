#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTimer>
#include <functional>
#include <stdexcept>
#include <string>

#include "base/qt/text.h"

namespace qor::pruebas {

// A dialog on the screen, and its controls by name.
class DialogoAbierto {
public:
    explicit DialogoAbierto(QDialog& dialogo) : dialogo_(dialogo) {
        dialogo_.show();
        QApplication::setActiveWindow(&dialogo_);
        // What is done when a dialog is first shown, and the layout that comes of it.
        QApplication::processEvents();
        QApplication::processEvents();
    }

    template <typename T = QWidget>
    T* Control(const char* nombre) const {
        auto* const control = dialogo_.findChild<T*>(QString::fromLatin1(nombre));
        if (control == nullptr) throw std::logic_error(std::string("no control ") + nombre);
        return control;
    }

    void Clic(const char* nombre) const {
        Control<QAbstractButton>(nombre)->click();
        QApplication::processEvents();
    }

    bool Visible(const char* nombre) const { return Control(nombre)->isVisible(); }
    bool Habilitado(const char* nombre) const { return Control(nombre)->isEnabled(); }

    // The text of a box, a button, a label or a list's choice, in the model's code page.
    std::string Texto(const char* nombre) const {
        const auto* const control = Control(nombre);
        if (const auto* const caja = qobject_cast<const QPlainTextEdit*>(control)) return LineasDelModelo(caja->toPlainText());
        return TextoDelModelo(
            control->property(qobject_cast<const QComboBox*>(control) != nullptr ? "currentText" : "text").toString());
    }

    // Types a text, letter by letter; '\n' is Enter.
    void Teclear(const char* nombre, const char* texto) const {
        for (const QChar c : QString::fromUtf8(texto))
            Pulsar(nombre, c == '\n' ? Qt::Key_Return : 0, c == '\n' ? QStringLiteral("\r") : QString(c));
    }
    void Pulsar(const char* nombre, int tecla, const QString& texto = {}) const {
        QKeyEvent evento(QEvent::KeyPress, tecla, Qt::NoModifier, texto);
        QApplication::sendEvent(Control(nombre), &evento);
    }
    void Vaciar(const char* nombre) const {
        auto* const control = Control(nombre);
        if (auto* const caja = qobject_cast<QLineEdit*>(control)) caja->clear();
        if (auto* const caja = qobject_cast<QPlainTextEdit*>(control)) caja->clear();
    }

private:
    QDialog& dialogo_;
};

// Does something with the next dialog that comes up within an event of the present one.
inline void EnElSiguiente(const std::function<void(const DialogoAbierto&)>& accion) {
    QTimer::singleShot(0, qApp, [accion] {
        auto* const dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialogo == nullptr) throw std::logic_error("no dialog came up");
        accion(DialogoAbierto(*dialogo));
    });
}

}  // namespace qor::pruebas
