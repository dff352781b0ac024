#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QWhatsThis>

#include "app/Principal.h"
#include "app/pages/findings_pane.h"
#include "app/pages/structures_pane.h"
#include "app/qt/help_window.h"
#include "app/qt/tabs.h"
#include "base/qt/dialog.h"
#include "editor/help_pages.h"

// The help: its pages, F1 and "What's this?".
namespace qor {

namespace {

constexpr int paginaDeEstructuras = 709;

}  // namespace

void Principal::MostrarAyuda(int mensaje, QWidget* ventana) { VentanaDeAyudaPara(ventana).MostrarPagina(mensaje); }

void Principal::MostrarPaginaDeAyuda(const std::string& pagina, QWidget* ventana) {
    VentanaDeAyudaPara(ventana).MostrarPagina(pagina);
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
    if (estructuras_->isAncestorOf(focusWidget())) return MostrarAyuda(paginaDeEstructuras);
    MostrarAyudaDe(focusWidget());
}

void Principal::MostrarAyudaDe(const QWidget* control) {
    QByteArray nombre;
    for (; control != nullptr && control != this; control = control->parentWidget()) {
        nombre = control->objectName().toLatin1();
        if (const auto pagina = PaginaPropia(nombre.toStdString()); !pagina.empty()) {
            return MostrarPaginaDeAyuda(std::string(pagina), nullptr);
        }
        if (controles_.Buscar(nombre) != nullptr) break;
    }
    MostrarAyuda(PaginaDeAyuda(nombre.toStdString(), SSTab1_->currentIndex()));
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
        if (const auto pagina = PaginaPropia(origen->objectName().toStdString()); !pagina.empty()) {
            MostrarPaginaDeAyuda(std::string(pagina), ventana);
            return true;
        }
    }
    MostrarPaginaDeAyuda("contents.html", ventana);
    return true;
}

// All that the application's windows are told passes here first.
bool Principal::eventFilter(QObject* objeto, QEvent* evento) {
    switch (evento->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::KeyPress:
        case QEvent::QueryWhatsThis:
        case QEvent::WhatsThis: break;
        default: return false;
    }
    auto* const control = qobject_cast<QWidget*>(objeto);
    if (control == nullptr) return false;
    if (evento->type() == QEvent::KeyPress) {
        return static_cast<QKeyEvent*>(evento)->key() == Qt::Key_F1 && AyudaDelDialogo(*control);
    }
    if (control->window() != this) return false;
    if (evento->type() == QEvent::QueryWhatsThis) {
        evento->accept();
        return true;
    }
    if (evento->type() == QEvent::WhatsThis) {
        evento->accept();
        MostrarAyudaDe(control);
        return true;
    }
    return RecibirSoltado(*evento);
}

}  // namespace qor
