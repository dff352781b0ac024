#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/Principal.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {

// The view of the desktop without its boxes: keeps the numbers of messages and questions, and answers from a script.
class VistaGuionada : public VistaDePantalla {
public:
    using VistaDePantalla::VistaDePantalla;

    std::vector<int> avisos;
    std::deque<Respuesta> respuestas;
    std::deque<std::filesystem::path> archivos;

    std::string ultimo;  // the text of the last message

    void Mostrar(const Mensaje& mensaje, Icono /*icono*/) override {
        avisos.push_back(mensaje.Numero());
        ultimo = mensaje.texto;
    }
    Respuesta Preguntar(const Mensaje& mensaje, Botones /*botones*/) override {
        avisos.push_back(mensaje.Numero());
        return Tomar(respuestas).value_or(Respuesta::Cancelar);
    }
    std::optional<std::filesystem::path> ElegirParaAbrir(const PedidoDeArchivo& /*pedido*/) override { return Tomar(archivos); }
    std::optional<std::filesystem::path> ElegirParaGrabar(const PedidoDeArchivo& /*pedido*/) override { return Tomar(archivos); }
    std::optional<std::filesystem::path> ElegirCarpeta(const PedidoDeArchivo& /*pedido*/) override { return Tomar(archivos); }
    void MostrarTexto(const std::string& texto) override { textoMostrado = texto; }
    bool OfreceEditor() const override { return false; }

    std::string textoMostrado;

private:
    template <typename T>
    static std::optional<T> Tomar(std::deque<T>& cola) {
        if (cola.empty()) return std::nullopt;
        T primero = cola.front();
        cola.pop_front();
        return primero;
    }
};

// A program with the language file of the tree and settings of its own, and its main form on the screen.
class ProgramaDePrueba {
public:
    explicit ProgramaDePrueba(const FabricaDeConexion& fabrica = {}) {
        directorio.Escribir("Tessaline.ini", "Language=English\r\n");
        Abrir(fabrica);
    }

    // A second start of the program, on the same settings.
    void Abrir(const FabricaDeConexion& fabrica = {}) {
        principal.reset();
        programa = std::make_unique<Programa>();
        const auto entorno = [this](const char* nombre) {
            return std::string(nombre) == "tessaline_ini" ? directorio.Ruta().string() : std::string();
        };
        CargarPrograma(*programa, entorno, QOR_TEST_SOURCE_DIR "/data");
        auto nueva = std::make_unique<VistaGuionada>(programa->textos);
        vista = nueva.get();
        principal = std::make_unique<Principal>(*programa, std::move(nueva), fabrica);
        principal->show();
        QApplication::setActiveWindow(principal.get());
        QApplication::processEvents();
    }

    template <typename T = QWidget>
    T* Control(const std::string& nombre) const {
        return principal->findChild<T*>(QString::fromStdString(nombre));
    }

    Ventana& LaVentana() const { return principal->LaVentana(); }

    void Enfocar(const std::string& nombre) const { Control(nombre)->setFocus(Qt::TabFocusReason); }

    // Keys go to the control that has the focus.
    static void Pulsar(int tecla, const QString& texto = {}, Qt::KeyboardModifiers modificadores = Qt::NoModifier) {
        QKeyEvent pulsada(QEvent::KeyPress, tecla, modificadores, texto);
        QApplication::sendEvent(QApplication::focusWidget(), &pulsada);
        QKeyEvent soltada(QEvent::KeyRelease, tecla, modificadores, texto);
        QApplication::sendEvent(QApplication::focusWidget(), &soltada);
    }
    static void Escribir(const std::string& texto) {
        for (const char c : texto) Pulsar(0, QString(QLatin1Char(c)));
    }
    static std::string Foco() {
        const QWidget* const control = QApplication::focusWidget();
        return control == nullptr ? "" : control->objectName().toStdString();
    }

    // Runs an action that opens a modal dialog; once the dialog is there, it is used and closed.
    static void ConDialogo(const std::function<void()>& abrir, const std::function<void(QDialog&)>& usar) {
        QTimer::singleShot(0, qApp, [&] {
            auto* const dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialogo == nullptr) return;
            usar(*dialogo);
            dialogo->close();
            EXPECT_FALSE(dialogo->isVisible()) << "the dialog refuses to close";
            dialogo->hide();
        });
        abrir();
    }

    DirectorioTemporal directorio;
    std::unique_ptr<Programa> programa;
    VistaGuionada* vista = nullptr;
    std::unique_ptr<Principal> principal;
};

}  // namespace qor::pruebas
