#include "app/qt/screen_view.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include "app/qt/text_editor.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "base/words.h"
#include "editor/FormMostrarTextos.h"
#include "editor/document_commands.h"

namespace qor {

namespace {

// Shows the ordinary pointer over a box that comes up in the middle of a long action.
class PunteroNormal {
public:
    explicit PunteroNormal(bool ocupado) : ocupado_(ocupado) {
        if (ocupado_) QApplication::restoreOverrideCursor();
    }
    ~PunteroNormal() {
        if (ocupado_) QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    PunteroNormal(const PunteroNormal&) = delete;
    PunteroNormal& operator=(const PunteroNormal&) = delete;

private:
    bool ocupado_;
};

// Message boxes take plain text, in which a line ends with LF. The row that it is about
// and the detail have lines of their own.
QString TextoDeMensaje(const Mensaje& mensaje, const TextosIdioma& textos) {
    const auto& deLaPantalla = mensaje.enPantalla.empty() ? mensaje.texto : mensaje.enPantalla;
    QString texto = TextoQt(ReemplazarTodo(ReemplazarTodo(deLaPantalla, "\r\n", "\n"), "\r", "\n"));
    if (mensaje.fila) {
        texto += QStringLiteral("\n\n") +
                 Palabra(textos, mensaje.fila->delArchivo ? palabra::LadoDelArchivo : palabra::LadoDelPrograma) +
                 QStringLiteral(", ") + Palabra(textos, palabra::FilaNumero).arg(mensaje.fila->fila + 1);
    }
    return mensaje.detalle.empty() ? texto : texto + QLatin1Char('\n') + QString::fromStdString(mensaje.detalle);
}

void PrepararCaja(QMessageBox& caja, const Mensaje& mensaje, QMessageBox::Icon icono, const TextosIdioma& textos) {
    caja.setIcon(icono);
    caja.setWindowTitle(QString::fromLatin1(tituloDelPrograma));
    caja.setTextFormat(Qt::PlainText);
    caja.setText(TextoDeMensaje(mensaje, textos));
}

// A filter of the model, such as "QOR format|*.qor", in the manner of the file dialogs.
QString FiltroQt(const std::string& filtro) {
    QStringList partes;
    for (std::string_view resto = filtro; !resto.empty();) {
        const auto nombre = AntesDe(resto, '|');
        resto = DespuesDe(resto, '|');
        const auto patron = AntesDe(resto, '|');
        resto = DespuesDe(resto, '|');
        partes << TextoQt(nombre) + " (" + TextoQt(ReemplazarTodo(patron, ";", " ")) + ")";
    }
    return partes.join(QStringLiteral(";;"));
}

}  // namespace

QWidget* VistaDePantalla::Padre() const {
    if (QWidget* const dialogo = QApplication::activeModalWidget()) return dialogo;
    // A window beside the main form asks for itself.
    QWidget* const activa = QApplication::activeWindow();
    return activa != nullptr && activa->windowType() == Qt::Window ? activa : formulario_.ventana;
}

void VistaDePantalla::AntesDePreguntar() const {
    if (formulario_.refrescar) formulario_.refrescar();
}

void VistaDePantalla::Mostrar(const Mensaje& mensaje, Icono icono) {
    AntesDePreguntar();
    const PunteroNormal puntero(ocupado_);
    QMessageBox caja(Padre());
    PrepararCaja(caja, mensaje, icono == Icono::Advertencia ? QMessageBox::Warning : QMessageBox::Information, textos_);
    caja.addButton(Palabra(textos_, palabra::Aceptar), QMessageBox::AcceptRole);
    caja.exec();
}

Respuesta VistaDePantalla::Preguntar(const Mensaje& mensaje, Botones botones) {
    AntesDePreguntar();
    const PunteroNormal puntero(ocupado_);
    QMessageBox caja(Padre());
    PrepararCaja(caja, mensaje, QMessageBox::Question, textos_);
    const bool aceptar = botones == Botones::AceptarCancelar;
    const bool restaurar = botones == Botones::RestaurarDescartarLuego;
    QPushButton* const si = caja.addButton(Palabra(textos_, aceptar     ? palabra::Aceptar
                                                            : restaurar ? palabra::Recuperar
                                                                        : palabra::Si),
                                           aceptar ? QMessageBox::AcceptRole : QMessageBox::YesRole);
    QPushButton* const no =
        aceptar ? nullptr : caja.addButton(Palabra(textos_, restaurar ? palabra::Descartar : palabra::No), QMessageBox::NoRole);
    QPushButton* const cancelar =
        botones == Botones::SiNo ? nullptr
                                 : caja.addButton(restaurar ? Palabra(textos_, palabra::MasTarde) : TextoQt(textos_.Texto(187)),
                                                  QMessageBox::RejectRole);
    caja.setDefaultButton(si);
    caja.setEscapeButton(cancelar != nullptr ? cancelar : no);
    caja.exec();
    if (caja.clickedButton() == si) return aceptar ? Respuesta::Aceptar : Respuesta::Si;
    return no != nullptr && caja.clickedButton() == no ? Respuesta::No : Respuesta::Cancelar;
}

std::optional<std::filesystem::path> VistaDePantalla::ElegirParaAbrir(const std::filesystem::path& directorio,
                                                                      const std::string& filtro) {
    AntesDePreguntar();
    const QString ruta = QFileDialog::getOpenFileName(Padre(), {}, NombreQt(directorio), FiltroQt(filtro));
    if (ruta.isEmpty()) return std::nullopt;
    return RutaDeQt(ruta);
}

std::optional<std::filesystem::path> VistaDePantalla::ElegirParaGrabar(const std::string& filtro) {
    AntesDePreguntar();
    QFileDialog dialogo(Padre(), {}, {}, FiltroQt(filtro));
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    const auto patron = AntesDe(DespuesDe(filtro, '|'), '|');
    if (patron.starts_with("*.")) dialogo.setDefaultSuffix(TextoQt(patron.substr(2)));
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty()) return std::nullopt;
    return RutaDeQt(dialogo.selectedFiles().constFirst());
}

void VistaDePantalla::PunteroOcupado(bool ocupado) {
    if (ocupado == ocupado_) return;
    ocupado_ = ocupado;
    if (ocupado) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void VistaDePantalla::MostrarFila(Tabla tabla, int fila) {
    if (formulario_.mostrarFila) formulario_.mostrarFila(tabla, fila);
}

void VistaDePantalla::Enfocar(const std::string& control) {
    if (formulario_.enfocar) formulario_.enfocar(control);
}

void VistaDePantalla::MostrarTexto(const std::string& texto) {
    AntesDePreguntar();
    const PunteroNormal puntero(ocupado_);
    FormMostrarTextos(textos_, texto, Padre()).exec();
}

bool VistaDePantalla::AbrirEditor(const std::filesystem::path& ruta) {
    const QString archivo = QFileInfo(NombreQt(ruta)).absoluteFilePath();
    if (!QFileInfo::exists(archivo)) return false;
    const std::string comando = formulario_.editorDeTextos ? formulario_.editorDeTextos() : std::string();
    return AbrirEnEditorDeTexto(TextoQt(comando), archivo);
}

}  // namespace qor
