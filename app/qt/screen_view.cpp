#include "app/qt/screen_view.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include "app/qt/text_editor.h"
#include "base/message_text.h"
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
    const auto visto = EnPantalla(mensaje, textos);
    QString texto = TextoQt(ReemplazarTodo(ReemplazarTodo(visto.texto, "\r\n", "\n"), "\r", "\n"));
    if (mensaje.fila) {
        texto += QStringLiteral("\n\n") +
                 Palabra(textos, mensaje.fila->delArchivo ? palabra::LadoDelArchivo : palabra::LadoDelPrograma) +
                 QStringLiteral(", ") + Palabra(textos, palabra::FilaNumero).arg(mensaje.fila->fila + 1);
    }
    return visto.detalle.empty() ? texto : texto + QLatin1Char('\n') + QString::fromStdString(visto.detalle);
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
    auto* const aceptar = caja.addButton(Palabra(textos_, palabra::Aceptar), QMessageBox::AcceptRole);
    caja.setDefaultButton(aceptar);
    caja.setEscapeButton(aceptar);
    AgregarBotonesDe(caja, mensaje.escrito);
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
    AgregarBotonesDe(caja, mensaje.escrito);
    caja.setDefaultButton(si);
    caja.setEscapeButton(cancelar != nullptr ? cancelar : no);
    caja.exec();
    if (caja.clickedButton() == si) return aceptar ? Respuesta::Aceptar : Respuesta::Si;
    return no != nullptr && caja.clickedButton() == no ? Respuesta::No : Respuesta::Cancelar;
}

void VistaDePantalla::AgregarBotonesDe(QMessageBox& caja, const std::filesystem::path& escrito) {
    if (escrito.empty()) return;
    const QFileInfo archivo(NombreQt(escrito));
    const auto agregar = [&](int rotulo, const char* nombre, const std::function<void()>& accion) {
        auto* const boton = caja.addButton(Palabra(textos_, rotulo), QMessageBox::ActionRole);
        boton->setObjectName(QString::fromLatin1(nombre));
        boton->setAutoDefault(false);
        QObject::disconnect(boton, &QPushButton::clicked, nullptr, nullptr);  // the box would close
        QObject::connect(boton, &QPushButton::clicked, &caja, accion);
    };
    agregar(palabra::AbrirLaCarpeta, "AbrirCarpeta", [this, carpeta = archivo.absolutePath()] {
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(carpeta))) {
            Advertir(MensajeDePalabra(textos_, palabra::NoSePudoAbrirLaCarpeta));
        }
    });
    agregar(palabra::CopiarAlPortapapeles, "CopiarNombre",
            [nombre = archivo.absoluteFilePath()] { QApplication::clipboard()->setText(nombre); });
}

QString VistaDePantalla::Comienzo(const PedidoDeArchivo& pedido) const {
    const auto comienzo = ComienzoDelDialogo(pedido, formulario_.lugares ? formulario_.lugares(pedido.clase) : LugaresDeDialogo{});
    return NombreQt(comienzo);
}

std::optional<std::filesystem::path> VistaDePantalla::RecordarElegido(const PedidoDeArchivo& pedido, const QString& ruta) const {
    if (ruta.isEmpty()) return std::nullopt;
    auto elegido = RutaDeQt(ruta);
    if (formulario_.recordar) formulario_.recordar(pedido.clase, elegido);
    return elegido;
}

std::optional<std::filesystem::path> VistaDePantalla::ElegirParaAbrir(const PedidoDeArchivo& pedido) {
    AntesDePreguntar();
    return RecordarElegido(pedido, QFileDialog::getOpenFileName(Padre(), {}, Comienzo(pedido), FiltroQt(pedido.filtro)));
}

std::optional<std::filesystem::path> VistaDePantalla::ElegirCarpeta(const PedidoDeArchivo& pedido) {
    AntesDePreguntar();
    auto deCarpeta = pedido;
    deCarpeta.presente /= "";
    const QString carpeta = QFileDialog::getExistingDirectory(Padre(), {}, Comienzo(deCarpeta));
    return RecordarElegido(pedido, carpeta.isEmpty() || carpeta.endsWith(QLatin1Char('/')) ? carpeta : carpeta + QLatin1Char('/'));
}

std::optional<std::filesystem::path> VistaDePantalla::ElegirParaGrabar(const PedidoDeArchivo& pedido) {
    AntesDePreguntar();
    QFileDialog dialogo(Padre(), {}, Comienzo(pedido), FiltroQt(pedido.filtro));
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.setOption(QFileDialog::DontConfirmOverwrite, pedido.preguntaDespues);
    const auto patron = AntesDe(DespuesDe(pedido.filtro, '|'), '|');
    if (patron.starts_with("*.")) dialogo.setDefaultSuffix(TextoQt(patron.substr(2)));
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty()) return std::nullopt;
    return RecordarElegido(pedido, dialogo.selectedFiles().constFirst());
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
