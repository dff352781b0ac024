#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "app/Principal.h"
#include "app/data_directory.h"
#include "app/file_type.h"
#include "app/qt/file_memory.h"
#include "app/qt/help_window.h"
#include "app/qt/sap_actions.h"
#include "app/qt/screen_view.h"
#include "app/qt/theme_icon.h"
#include "app/qt/toolkit_language.h"
#include "app/start_up.h"
#include "base/code_page.h"
#include "base/message_text.h"
#include "base/process.h"
#include "base/qt/colours.h"
#include "base/qt/text.h"
#include "base/words.h"
#include "dataset/FormBDCEditor.h"
#include "editor/document_commands.h"

namespace {

// `detalle` is what the system said about a file, in UTF-8.
void Avisar(const QString& texto, const std::string& detalle = {}) {
    const QString detras = detalle.empty() ? QString() : QLatin1Char('\n') + QString::fromStdString(detalle);
    QMessageBox caja(QMessageBox::Warning, QString::fromLatin1(qor::tituloDelPrograma), texto + detras, QMessageBox::Ok);
    caja.setTextFormat(Qt::PlainText);
    caja.exec();
}

// The arguments as one command line. A shell has taken off quotes, so that an argument is a path whole; the prefix may stand alone.
std::string LineaDe(const QStringList& argumentos) {
    QString linea = argumentos.mid(1).join(QLatin1Char(' '));
    if (argumentos.size() > 2 && argumentos.at(1) == QLatin1String("#$%")) linea.remove(3, 1);
    return QFile::encodeName(linea).toStdString();
}

void RegistrarTipoDeArchivo(const std::filesystem::path& directorioDeDatos) {
    const auto entorno = qor::EntornoDelProceso();
    const auto plan = qor::PlanearRegistro(entorno, QCoreApplication::applicationFilePath().toStdString(), directorioDeDatos);
    if (!qor::RegistrarExtension(plan)) return;
    for (const auto& comando : qor::ComandosDeRegistro(entorno)) {
        QStringList argumentos;
        for (const auto& argumento : comando) argumentos << QString::fromStdString(argumento);
        const QString programa = argumentos.takeFirst();
        QProcess::startDetached(programa, argumentos);
    }
}

// The data-set editor without the rest, for an end user who corrects a file. The file is named behind the option, or chosen in it.
int CorrerEditorDeDatos(qor::Programa& programa, const QStringList& argumentos) {
    QApplication::setDesktopFileName(QStringLiteral("qor-data-set-editor"));
    qor::CambiarIdiomaDeQt(programa.textos.Palabra(qor::palabra::CodigoDelIdioma));
    qor::DistinguirTextosDeEspera();
    qor::VistaDePantalla vista(programa.textos);
    qor::VistaDePantalla::Formulario formulario;
    formulario.editorDeTextos = [&programa] { return programa.ajustes.EditorDeTextos; };
    formulario.lugares = [&programa](qor::ClaseDeArchivo clase) { return qor::LugaresDe(programa, {}, clase); };
    formulario.recordar = [&programa](qor::ClaseDeArchivo clase, const std::filesystem::path& elegido) {
        qor::RecordarLugar(programa, clase, elegido);
    };
    vista.Servir(std::move(formulario));
    const auto ayuda = [&programa](int mensaje, QWidget* ventana) {
        auto* const pagina = new qor::VentanaDeAyuda(programa.textos, programa.directorioDeDatos, ventana);
        pagina->setAttribute(Qt::WA_DeleteOnClose);
        pagina->MostrarPagina(mensaje);
    };
    qor::FormBDCEditor editor(programa.textos, vista, ayuda, nullptr);
    editor.setWindowIcon(qor::IconoDeTema("data-set-editor"));
    if (!argumentos.isEmpty()) {
        const std::filesystem::path ruta = QFile::encodeName(argumentos.first()).toStdString();
        QTimer::singleShot(0, &editor, [&editor, ruta] { editor.Abrir(ruta); });
    }
    editor.exec();
    return 0;
}

constexpr const char* uso =
    "Qor Generator: ABAP load programs from specifications.\n"
    "Usage: qor [DOCUMENT]\n"
    "       qor --data-set-editor [FILE]\n"
    "\n"
    "  DOCUMENT                  a .qor document to open\n"
    "  --data-set-editor [FILE]  the data-set editor without the rest, for an end user who corrects a file\n"
    "  --version                 print the version and exit\n"
    "  -h, --help                print this help and exit\n"
    "\n"
    "The commands for scripts are those of qorgen.\n";

// What is asked of the program itself, and needs no screen.
bool ContestarSinPantalla(int cantidad, char** argumentos) {
    const std::string_view primero = cantidad == 2 ? argumentos[1] : "";
    if (primero == "--version") {
        std::puts("qor " QOR_VERSION);
    } else if (primero == "--help" || primero == "-h") {
        std::fputs(uso, stdout);
    } else {
        return false;
    }
    return true;
}

}  // namespace

int main(int cantidad, char** argumentos) {
    if (ContestarSinPantalla(cantidad, argumentos)) return 0;
    qor::PrepararProceso();
    QApplication aplicacion(cantidad, argumentos);
    QApplication::setApplicationName(QStringLiteral("qor-generator"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setDesktopFileName(QStringLiteral("qor-generator"));
    QApplication::setApplicationVersion(QStringLiteral(QOR_VERSION));

    qor::Programa programa;
    switch (qor::CargarPrograma(programa, qor::EntornoDelProceso(), qor::DirectorioDeDatos())) {
        case qor::ResultadoIdioma::SinArchivo: Avisar(QString::fromLatin1(qor::avisoSinIdioma), programa.detalleDeIdioma); return 1;
        case qor::ResultadoIdioma::Fallo: Avisar(QString::fromLatin1(qor::avisoFalloIdioma)); break;
        case qor::ResultadoIdioma::Bien: break;
    }
    if (!programa.falloDeAjustes.texto.empty()) {
        const auto aviso = qor::EnPantalla(programa.falloDeAjustes, programa.textos);
        Avisar(qor::TextoQt(aviso.texto), aviso.detalle);
    }
    const QStringList dados = QApplication::arguments();
    if (dados.size() > 1 && dados.at(1) == QLatin1String("--data-set-editor")) return CorrerEditorDeDatos(programa, dados.mid(2));
    const std::string linea = LineaDe(QApplication::arguments());
    RegistrarTipoDeArchivo(programa.directorioDeDatos);

    qor::Principal principal(programa, std::make_unique<qor::VistaDePantalla>(programa.textos), qor::ConexionSAP);
    principal.show();
    // Behind the first painting of the window, so that the opening box comes up in front of it.
    QTimer::singleShot(0, &principal, [&] { principal.ActivarPorPrimeraVez(qor::LeerArranque(linea)); });
    return QApplication::exec();
}
