#include <QAction>
#include <QApplication>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QStackedWidget>
#include <system_error>

#include "app/Principal.h"
#include "app/dropped_file.h"
#include "app/examples.h"
#include "app/pages/controls.h"
#include "app/pages/start_page.h"
#include "app/qt/recent_documents.h"
#include "app/qt/tabs.h"
#include "app/show_changes.h"
#include "base/failure.h"
#include "base/qt/scroll_page.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/words.h"
#include "editor/document_commands.h"
#include "sap/import.h"

// What a user begins with: the start page, the documents that were open before, and files that are dropped onto the window.
namespace qor {

namespace {

// The one file that a drag brings; empty for several ones, and for what is no file of this machine.
std::filesystem::path UnicoArchivo(const QMimeData& datos) {
    const auto direcciones = datos.urls();
    if (direcciones.size() != 1 || !direcciones.front().isLocalFile()) return {};
    return RutaDeQt(direcciones.front().toLocalFile());
}

}  // namespace

// ---- The start page ----

PaginaDeInicio* Principal::NuevoInicio(QWidget* padre) {
    std::vector<EjemploIncluido> ejemplos;
    try {
        ejemplos = LeerEjemplos(programa_.directorioDeDatos, DirectorioDeEjemplos(programa_.directorioDeDatos));
    } catch (const FalloDeEjecucion&) {
        // The command of the menu says what is wrong with them.
    }
    return new PaginaDeInicio(programa_.textos, std::move(ejemplos),
                              {.empezar = [this] { OcultarInicio(); },
                               .abrir = [this] { controles_.Buscar<QAction>("OpenOption")->trigger(); },
                               .abrirReciente = [this](const auto& documento) { AbrirReciente(documento); },
                               .abrirEjemplo = [this](const auto& ejemplo) { Mandar([&] { AbrirCopia(ejemplo); }); },
                               .escribir =
                                   [this](const QKeyEvent& tecla) {
                                       OcultarInicio();
                                       QKeyEvent primera(tecla.type(), tecla.key(), tecla.modifiers(), tecla.text());
                                       QApplication::sendEvent(focusWidget(), &primera);
                                   }},
                              padre);
}

bool Principal::HayTrabajo() const { return abierto_.HayCambios() || !abierto_.ruta.empty() || conexion_->Conectado(); }

void Principal::MostrarInicio() {
    if (HayTrabajo()) return;
    inicio_->MostrarRecientes(DocumentosRecientes(RutaDeMemoria(programa_)));
    centro_->setCurrentWidget(inicio_);
    MostrarPanelDeEstructuras();
    inicio_->TomarTeclado();
}

void Principal::OcultarInicio() {
    if (centro_->currentWidget() != inicio_) return;
    centro_->setCurrentIndex(0);
    MostrarPanelDeEstructuras();
    controles_.Buscar<QWidget>("Text1_0")->setFocus(Qt::OtherFocusReason);
}

// ---- Documents that were open before ----

void Principal::AnotarReciente() {
    if (abierto_.ruta == anotado_) return;
    anotado_ = abierto_.ruta;
    if (anotado_.empty()) return;
    std::error_code error;
    const auto entera = std::filesystem::absolute(anotado_, error);
    if (!error) RecordarDocumento(RutaDeMemoria(programa_), entera);
}

void Principal::CrearMenuDeRecientes(QMenu* archivo) {
    auto* const menu = Nuevo<QMenu>("RecentOption", this);
    archivo->addMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        const auto documentos = DocumentosRecientes(RutaDeMemoria(programa_));
        int numero = 0;
        for (const auto& documento : documentos) {
            ++numero;
            const QString letra = numero < 10 ? QStringLiteral("&%1  ").arg(numero) : QStringLiteral("%1  ").arg(numero);
            auto* const orden = menu->addAction(letra + ComoRotulo(NombreQt(documento.filename())) + QLatin1Char('\t') +
                                                ComoRotulo(NombreQt(documento.parent_path())));
            connect(orden, &QAction::triggered, this, [this, documento] { AbrirReciente(documento); });
        }
        menu->addSeparator();
        auto* const vaciar = menu->addAction(Palabra(programa_.textos, palabra::VaciarEstaLista));
        vaciar->setEnabled(!documentos.empty());
        connect(vaciar, &QAction::triggered, this, [this] {
            OlvidarDocumentos(RutaDeMemoria(programa_));
            inicio_->MostrarRecientes({});
        });
    });
}

void Principal::AbrirReciente(const std::filesystem::path& documento) {
    Mandar([&] {
        std::error_code error;
        if (!std::filesystem::exists(documento, error) && !error) {
            const auto pregunta =
                MensajeDePalabra(programa_.textos, palabra::ElDocumentoYaNoEsta, {TextoDelModelo(NombreQt(documento))});
            if (vista_->Preguntar(pregunta, Botones::SiNo) != Respuesta::Si) return;
            OlvidarDocumento(RutaDeMemoria(programa_), documento);
            inicio_->MostrarRecientes(DocumentosRecientes(RutaDeMemoria(programa_)));
            return;
        }
        Abrir(documento);
    });
}

void Principal::Abrir(const std::filesystem::path& documento) {
    if (!OpenOption(ventana_, documento)) return;
    RecordarDirectorio(programa_, abierto_);
    MostrarElComienzo();
}

// Of another specification: the head of the grids, and the first cell.
void Principal::MostrarElComienzo() {
    static_cast<PaginaDesplazable*>(SSTab1_->widget(0))->verticalScrollBar()->setValue(0);
    controles_.Buscar<QWidget>("Text1_0")->setFocus(Qt::OtherFocusReason);
}

// ---- Files that are dropped ----

// The controls of the form take texts; a file is for the form, wherever it is dropped. Its program waits for the end of the drop,
// so what may ask something comes behind it.
bool Principal::RecibirSoltado(QEvent& evento) {
    auto& soltado = static_cast<QDropEvent&>(evento);
    if (!soltado.mimeData()->hasUrls()) return false;
    const auto archivo = UnicoArchivo(*soltado.mimeData());
    soltado.setDropAction(Qt::CopyAction);
    soltado.setAccepted(!archivo.empty());
    if (evento.type() == QEvent::Drop && !archivo.empty()) {
        QMetaObject::invokeMethod(
            this, [this, archivo] { RecibirArchivo(archivo); }, Qt::QueuedConnection);
    }
    return true;
}

void Principal::RecibirArchivo(const std::filesystem::path& archivo) {
    raise();
    activateWindow();
    Mandar([&] {
        switch (ClaseDe(archivo)) {
            case ClaseDeSoltado::Documento: Abrir(archivo); break;
            case ClaseDeSoltado::Grabacion: ImportarArchivo(archivo); break;
            case ClaseDeSoltado::ArchivoDeDatos: ClicDatos(archivo); break;
        }
    });
}

void Principal::ImportarArchivo(const std::filesystem::path& archivo) {
    auto importacion = LeerImportacion(abierto_.especificacion, archivo, programa_.textos, *vista_);
    if (!importacion) return;
    TomarImportacion(ventana_, std::move(*importacion), TextoDelModelo(Palabra(programa_.textos, palabra::Filas)));
}

}  // namespace qor
