#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>
#include <string>

#include "app/Principal.h"
#include "app/data_directory.h"
#include "app/file_type.h"
#include "app/qt/sap_actions.h"
#include "app/qt/screen_view.h"
#include "app/start_up.h"
#include "base/code_page.h"
#include "editor/document_commands.h"

namespace {

void Avisar(const char* texto) {
    QMessageBox caja(QMessageBox::Warning, QString::fromLatin1(qor::tituloDelPrograma), QString::fromLatin1(texto),
                     QMessageBox::Ok);
    caja.exec();
}

// The arguments as one command line. A shell has taken off quotes, so that an argument is a path whole; the prefix may stand alone.
std::string LineaDe(const QStringList& argumentos) {
    QString linea = argumentos.mid(1).join(QLatin1Char(' '));
    if (argumentos.size() > 2 && argumentos.at(1) == QLatin1String("#$%")) linea.remove(3, 1);
    return linea.toStdString();
}

void RegistrarTipoDeArchivo() {
    const auto entorno = qor::EntornoDelProceso();
    const auto plan = qor::PlanearRegistro(entorno, QCoreApplication::applicationFilePath().toStdString());
    if (!qor::RegistrarExtension(plan)) return;
    for (const auto& comando : qor::ComandosDeRegistro(entorno)) {
        QStringList argumentos;
        for (const auto& argumento : comando) argumentos << QString::fromStdString(argumento);
        const QString programa = argumentos.takeFirst();
        QProcess::startDetached(programa, argumentos);
    }
}

}  // namespace

int main(int cantidad, char** argumentos) {
    QApplication aplicacion(cantidad, argumentos);
    QApplication::setApplicationName(QStringLiteral("qor-generator"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setDesktopFileName(QStringLiteral("qor-generator"));
    QApplication::setApplicationVersion(QStringLiteral(QOR_VERSION));

    qor::Programa programa;
    switch (qor::CargarPrograma(programa, qor::EntornoDelProceso(), qor::DirectorioDeDatos())) {
        case qor::ResultadoIdioma::SinArchivo: Avisar(qor::avisoSinIdioma); return 1;
        case qor::ResultadoIdioma::Fallo: Avisar(qor::avisoFalloIdioma); break;
        case qor::ResultadoIdioma::Bien: break;
    }
    const auto linea = qor::DesdeUtf8(LineaDe(QApplication::arguments()));
    if (!linea) {
        Avisar("The name of the document has a character outside windows-1252.");
        return 1;
    }
    RegistrarTipoDeArchivo();

    qor::Principal principal(programa, std::make_unique<qor::VistaDePantalla>(programa.textos), qor::ConexionSAP);
    principal.show();
    // Behind the first painting of the window, so that the opening box comes up in front of it.
    QTimer::singleShot(0, &principal, [&] { principal.ActivarPorPrimeraVez(qor::LeerLineaDeComandos(*linea)); });
    return QApplication::exec();
}
