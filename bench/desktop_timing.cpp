// Times of the desktop program, on whatever platform Qt finds (QT_QPA_PLATFORM=offscreen for one without a screen):
//   start to first shown window, a key in a cell, opening the largest document, looking for its findings and showing them.
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "app/Principal.h"
#include "app/data_directory.h"
#include "bench/large_specification.h"
#include "editor/document_commands.h"
#include "model/document_format.h"

namespace {

double Milisegundos(const QElapsedTimer& reloj) { return static_cast<double>(reloj.nsecsElapsed()) / 1e6; }

// Every table full.
std::string EscribirDocumentoMayor() {
    const auto ruta = std::filesystem::temp_directory_path() / "qor_desktop_timing.qor";
    std::ofstream(ruta, std::ios::binary) << qor::EscribirDocumento(qor::EspecificacionGrande(1000), qor::Opciones{});
    return ruta.string();
}

double PromedioDeTecla(qor::Principal& principal) {
    auto* const celda = principal.findChild<QWidget*>("Text1_0");
    celda->setFocus(Qt::OtherFocusReason);
    constexpr int teclas = 200;
    QElapsedTimer reloj;
    reloj.start();
    for (int i = 0; i < teclas; ++i) {
        const bool borra = i % 2 == 1;
        QKeyEvent evento(QEvent::KeyPress, borra ? Qt::Key_Backspace : Qt::Key_X, Qt::NoModifier,
                         borra ? QString() : QStringLiteral("x"));
        QApplication::sendEvent(celda, &evento);
        QApplication::processEvents();
    }
    return Milisegundos(reloj) / teclas;
}

}  // namespace

int main(int argc, char** argv) {
    QElapsedTimer reloj;
    reloj.start();
    const QApplication aplicacion(argc, argv);
    qor::Programa programa;
    // No settings: whatever the user has is neither read nor written.
    const std::string ajustes = (std::filesystem::temp_directory_path() / "qor_desktop_timing").string();
    const auto entorno = [&](const char* nombre) { return std::string(nombre) == "XDG_CONFIG_HOME" ? ajustes : std::string(); };
    qor::CargarPrograma(programa, entorno, qor::DirectorioDeDatos());
    qor::ElegirIdioma(programa, "English");
    qor::Principal principal(programa, std::make_unique<qor::VistaDePantalla>(programa.textos));
    principal.show();
    QApplication::processEvents();
    std::printf("start to first shown window  %8.1f ms\n", Milisegundos(reloj));
    std::printf("a key in a cell              %8.3f ms\n", PromedioDeTecla(principal));

    // What was typed must not be asked for.
    principal.LaVentana().documento.DarPorGuardado();
    const std::string documento = EscribirDocumentoMayor();
    reloj.restart();
    const bool abierto = qor::AbrirInicial(programa, principal.LaVentana(), documento);
    principal.Sincronizar();
    QApplication::processEvents();
    std::printf("opening the largest document %8.1f ms\n", Milisegundos(reloj));
    std::printf("a key in a cell of it        %8.3f ms\n", PromedioDeTecla(principal));
    // Switched off and on again, the pane looks at once.
    auto* const hallazgos = principal.findChild<QAction*>("FindingsOption");
    hallazgos->trigger();
    reloj.restart();
    hallazgos->trigger();
    QApplication::processEvents();
    const bool visible = principal.findChild<QWidget*>("PanelDeHallazgos")->isVisible();
    std::printf("its findings%s      %8.1f ms\n", visible ? ", shown   " : ", not shown", Milisegundos(reloj));
    std::printf("a key in a cell beside them  %8.3f ms\n", PromedioDeTecla(principal));
    principal.TerminarCon(0);
    return abierto ? 0 : 1;
}
