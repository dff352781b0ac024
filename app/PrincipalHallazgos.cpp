#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>

#include "app/Principal.h"
#include "app/pages/findings_pane.h"
#include "app/pages/grids_page.h"
#include "app/pages/panes_below.h"
#include "app/pages/start_page.h"
#include "app/pages/structures_pane.h"
#include "app/qt/help_window.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/qt/words.h"
#include "findings/catalogue.h"

// The pane of findings in the main form: the pause behind a change, what is shown, and the ways to the places.
namespace qor {

namespace {

// A dialog, a menu, a drag: what is at work must find the window as it was.
bool HayAlgoAbierto() {
    return QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr ||
           QApplication::mouseButtons() != Qt::NoButton;
}

}  // namespace

QWidget* Principal::ConPanelesDeAbajo(QWidget* paginas) {
    hallazgos_ = new PanelDeHallazgos(programa_.textos, this);
    estructuras_ = new PanelDeEstructuras(abierto_, programa_.ajustes.preferencias, programa_.textos, this);
    division_ = new DivisionConPaneles(paginas, hallazgos_, estructuras_, this);
    connect(estructuras_, &PanelDeEstructuras::Cambiado, this, [this] { MostrarPanelDeEstructuras(); });
    connect(estructuras_, &PanelDeEstructuras::Cerrado, this, [this] { EncenderEstructuras(false); });
    connect(hallazgos_, &PanelDeHallazgos::Activado, this, &Principal::IrAHallazgo);
    connect(hallazgos_, &PanelDeHallazgos::Cerrado, this, [this] { EncenderHallazgos(false); });
    pausa_ = new QTimer(this);
    pausa_->setObjectName(QStringLiteral("PausaDeHallazgos"));
    pausa_->setSingleShot(true);
    connect(pausa_, &QTimer::timeout, this, [this] { MirarTrasLaPausa(); });
    vigia_.Encender(programa_.ajustes.MostrarHallazgos);
    return division_;
}

void Principal::CrearMenuDeHallazgos(QMenu* menu) {
    auto* const mostrar = Nuevo<QAction>("FindingsOption", this);
    mostrar->setCheckable(true);
    menu->addAction(mostrar);
    mostrar->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    connect(mostrar, &QAction::triggered, this, [this](bool puesta) { EncenderHallazgos(puesta); });
    lazos_.AlMostrar([this, mostrar] { mostrar->setChecked(vigia_.Pedido()); });
    NuevaAccion("NextFindingOption", menu, [this] { IrAVecino(1); })->setShortcut(QKeySequence(Qt::Key_F8));
    NuevaAccion("PreviousFindingOption", menu, [this] { IrAVecino(-1); })->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F8));
    auto* const estructuras = Nuevo<QAction>("StructuresOption", this);
    estructuras->setCheckable(true);
    menu->addAction(estructuras);
    connect(estructuras, &QAction::triggered, this, [this](bool puesta) { EncenderEstructuras(puesta); });
}

// ---- Following ----

void Principal::VigilarHallazgos() {
    if (const auto pausa = vigia_.PausaHastaMirar(MateriaDeLaVentana())) pausa_->start(*pausa);
}

void Principal::MirarTrasLaPausa() {
    constexpr int milisegundosDeEspera = 500;
    HayAlgoAbierto() ? pausa_->start(milisegundosDeEspera) : MirarHallazgos();
}

MateriaDeHallazgos Principal::MateriaDeLaVentana() const {
    return {abierto_, programa_.ajustes.preferencias, programa_.textos, conexion_->Conectado()};
}

void Principal::MirarHallazgos() {
    pausa_->stop();
    vigia_.Mirar(MateriaDeLaVentana());
    MostrarHallazgos();
}

void Principal::MostrarHallazgos() {
    const bool conFoco = hallazgos_->isAncestorOf(focusWidget());
    hallazgos_->Mostrar(vigia_);
    if (conFoco && !vigia_.Visible()) hallazgos_->DevolverFoco();
    division_->MostrarPrimero(vigia_.Visible());
    const auto& especificacion = abierto_.especificacion;
    rejillas_->PonerSignos(SignosDe(vigia_.Lista(), Tabla::Archivo, especificacion, abierto_.opciones),
                           SignosDe(vigia_.Lista(), Tabla::Transaccion, especificacion, abierto_.opciones));
    controles_.Buscar<QAction>("FindingsOption")->setChecked(vigia_.Pedido());
    // A box would stand in the way of the work again and again.
    if (!vigia_.Fallo().empty()) {
        statusBar()->showMessage(Palabra(programa_.textos, palabra::NoSePuedenDeterminarLosHallazgos) + QLatin1Char(' ') +
                                 TextoQt(vigia_.Fallo()));
    }
}

// A choice of the user's, saved at once.
void Principal::EncenderHallazgos(bool encendido) {
    vigia_.Encender(encendido);
    programa_.ajustes.MostrarHallazgos = encendido;
    MirarHallazgos();
    GuardarAjustes();
}

void Principal::EncenderEstructuras(bool encendidas) {
    estructuras_->Encender(encendidas);
    MostrarPanelDeEstructuras();
}

void Principal::MostrarPanelDeEstructuras() {
    controles_.Buscar<QAction>("StructuresOption")->setChecked(estructuras_->Encendido());
    const bool enInicio = centro_->currentWidget() == inicio_;
    division_->MostrarSegundo(!enInicio && estructuras_->Encendido() && estructuras_->HayTexto());
}

void Principal::HallazgosTrasGenerar(const FinDeGeneracion& fin) {
    pausa_->stop();
    const int elegido = vigia_.TrasGenerar(fin, MateriaDeLaVentana());
    if (fin.escrito) programa_.erroresDelReporte = ContarHallazgos(vigia_.Lista()).errores;
    MostrarHallazgos();
    if (elegido >= 0) hallazgos_->Elegir(elegido);
}

// ---- Ways to the places ----

void Principal::IrAVecino(int paso) {
    // What was typed since the last pause counts, and so does a pane that was switched off.
    if (pausa_->isActive() || !vigia_.Pedido()) {
        vigia_.Llamar();
        MirarHallazgos();
    }
    const int vecino = vigia_.Vecino(hallazgos_->Elegido(), paso);
    if (vecino < 0) return statusBar()->showMessage(Palabra(programa_.textos, palabra::SinHallazgos));
    hallazgos_->Elegir(vecino);
    IrAHallazgo(vecino);
}

void Principal::IrAHallazgo(int hallazgo) {
    const Hallazgo elegido = vigia_.Lista().at(static_cast<std::size_t>(hallazgo));
    Mandar([&] { IrA(DestinoDe(elegido.lugar, abierto_.especificacion, abierto_.opciones)); });
}

void Principal::IrA(const Destino& destino) {
    using Clase = Destino::Clase;
    if (destino.EnRejilla()) MostrarCelda(ventana_, destino.columna, destino.fila);
    switch (destino.clase) {
        case Clase::Nada:
        case Clase::Celda: break;
        case Clase::Nota: ClicNotas({TablaDe(destino.columna), destino.fila}); break;
        case Clase::Conversion: ClicCodigo(destino.fila, &destino); break;
        case Clase::Condiciones: ClicCondiciones(&destino); break;
        case Clase::Definiciones: ClicDefiniciones(&destino); break;
        case Clase::Origen: ClicOrigen(&destino); break;
        case Clase::Control:
            EnfocarControl(destino.control);
            if (auto* const texto = controles_.Buscar<CajaDeTexto>(QByteArray::fromStdString(destino.control))) {
                texto->IrALinea(destino.linea);
            }
            break;
    }
}

void Principal::AyudaDelHallazgo() {
    const int elegido = hallazgos_->Elegido();
    const int codigo = elegido < 0 ? 0 : vigia_.Lista().at(static_cast<std::size_t>(elegido)).codigo;
    MostrarAyuda(codigo == 0 ? std::string("findings.html") : PaginaDeHallazgo(codigo));
}

}  // namespace qor
