#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>
#include <QWhatsThis>
#include <variant>

#include "app/Principal.h"
#include "app/pages/findings_pane.h"
#include "app/pages/start_page.h"
#include "app/qt/help_window.h"
#include "app/qt/tabs.h"
#include "base/qt/dialog.h"

// The help: its pages, F1 and "What's this?".
namespace qor {

void Principal::MostrarAyuda(const PaginaDeAyuda& pagina, QWidget* ventana) {
    auto& ayuda = VentanaDeAyudaPara(ventana);
    std::visit([&ayuda](const auto& cual) { ayuda.MostrarPagina(cual); }, pagina);
}

VentanaDeAyuda& Principal::VentanaDeAyudaPara(QWidget* ventana) {
    if (ventana == nullptr || ventana == this) return VentanaPropiaDeAyuda();
    // A modal dialog shuts out every window but its own.
    auto* const propia = new VentanaDeAyuda(programa_.textos, programa_.directorioDeDatos, ventana);
    propia->setAttribute(Qt::WA_DeleteOnClose);
    return *propia;
}

VentanaDeAyuda& Principal::VentanaPropiaDeAyuda() {
    if (ayuda_ == nullptr) {
        ayuda_ = new VentanaDeAyuda(programa_.textos, programa_.directorioDeDatos, this);
        ayuda_->setAttribute(Qt::WA_QuitOnClose, false);
    }
    return *ayuda_;
}

void Principal::CrearTeclasDeAyuda() {
    auto* const tecla = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(tecla, &QShortcut::activated, this, [this] { AyudaDelControl(); });
}

// The buttons of the tool bar take no focus, so the pointer says which one is meant.
void Principal::AyudaDelControl() {
    auto* const boton = qobject_cast<QToolButton*>(QApplication::widgetAt(QCursor::pos()));
    if (boton != nullptr && boton->window() == this && qobject_cast<QToolBar*>(boton->parentWidget()) != nullptr) {
        return MostrarAyudaDe(boton);
    }
    if (hallazgos_->isAncestorOf(focusWidget())) return AyudaDelHallazgo();
    MostrarAyudaDe(focusWidget());
}

void Principal::MostrarAyudaDe(const QWidget* control) {
    if (inicio_->isAncestorOf(control)) control = inicio_;
    for (; control != nullptr && control != this; control = control->parentWidget()) {
        const QByteArray nombre = control->objectName().toLatin1();
        if (const auto pagina = PaginaDe(nombre.toStdString())) return MostrarAyuda(*pagina);
        if (controles_.Buscar(nombre) != nullptr) break;
    }
    MostrarAyuda(PaginaDePestana(SSTab1_->currentIndex()));
}

// The pointer asks whether a control has an answer, and then for it.
bool Principal::QueEsEsto(const QWidget& control, QEvent& evento) {
    evento.accept();
    if (evento.type() == QEvent::WhatsThis) {
        QWhatsThis::leaveWhatsThisMode();
        MostrarAyudaDe(&control);
    }
    return true;
}

// F1 in a window above this one: its own page, or that of what it came from. Where it has a key for help, that one is left to it.
bool Principal::AyudaDelDialogo(QWidget& control) {
    QWidget* const ventana = control.window();
    if (ventana == this || !ventana->isModal() || ventana->property(propiedadDePagina).isValid()) return false;
    for (const QWidget* origen = ventana; origen != nullptr; origen = origen->parentWidget()) {
        if (const int mensaje = origen->property(propiedadDePagina).toInt(); mensaje > 0) {
            MostrarAyuda(mensaje, ventana);
            return true;
        }
        if (const auto pagina = PaginaDe(origen->objectName().toStdString())) {
            MostrarAyuda(*pagina, ventana);
            return true;
        }
    }
    MostrarAyuda(paginaDeContenido, ventana);
    return true;
}

}  // namespace qor
