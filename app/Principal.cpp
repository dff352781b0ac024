#include "app/Principal.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <QShortcut>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "app/qt/help_window.h"
#include "app/qt/scroll_page.h"
#include "app/qt/theme_icon.h"
#include "base/qt/dialog.h"
#include "base/qt/text.h"
#include "editor/cell_focus.h"
#include "editor/document_commands.h"
#include "editor/failure_trap.h"
#include "editor/grids.h"
#include "editor/help_pages.h"
#include "editor/option_rules.h"
#include "sap/session.h"

namespace qor {

namespace {

// Up to this width the window takes the whole screen.
constexpr int anchoDePantallaPequena = 800;

// Where the window was left, in a file of its own beside the settings.
QString RutaDeVentana(const Programa& programa) {
    return QString::fromStdString((programa.rutaDeAjustes.parent_path() / "qor-window.ini").string());
}

}  // namespace

Principal::Principal(Programa& programa, std::unique_ptr<VistaDePantalla> vista, const FabricaDeConexion& fabrica)
    : programa_(programa), vista_(std::move(vista)), editor_(programa.textos, *vista_) {
    setObjectName(QStringLiteral("Principal"));
    PrepararEditor(programa_, editor_);
    vista_->Servir({[this] {
                        // The cells alone: options can be other than the user's while an action runs.
                        const bool antes = std::exchange(sincronizando_, true);
                        SincronizarRejillas();
                        sincronizando_ = antes;
                    },
                    [this](Tabla tabla, int fila) {
                        tabla == Tabla::Archivo ? qor::MostrarArchivo(editor_, fila) : qor::MostrarTransaccion(editor_, fila);
                        Sincronizar();
                    },
                    [this](const std::string& control) { EnfocarControl(control); }, this});
    if (fabrica) conexion_ = fabrica({programa_, editor_, *vista_, this});
    if (!conexion_) conexion_ = SinConexion(*vista_);
    encoding_ = EncodingDeAdiciones(programa_.ajustes.preferencias.AdicionesDataset);
    Construir();
    AplicarPaleta();
    RefrescarIdioma();
    RestaurarVentana();
}

Principal::~Principal() {
    // Controls that go with the form have nothing to tell any more.
    sincronizando_ = true;
    for (auto* const celda : celdas_) celda->disconnect(this);
    vista_->Servir({});
}

void Principal::Construir() {
    setWindowIcon(IconoDeTema("program"));
    SSTab1_ = Nuevo<QTabWidget>("SSTab1", this);
    SSTab1_->addTab(new PaginaDesplazable(CrearPaginaDeRejillas()), {});
    SSTab1_->addTab(new PaginaDesplazable(CrearPaginaDeOpciones()), {});
    SSTab1_->addTab(new PaginaDesplazable(CrearPaginaDeHerramientas()), {});
    SSTab1_->addTab(new PaginaDesplazable(CrearPaginaDeDocumentacion()), {});
    connect(SSTab1_, &QTabWidget::currentChanged, this, [this](int pagina) {
        if (!sincronizando_) editor_.ventana.SSTab1 = pagina;
    });
    connect(SSTab2_, &QTabWidget::currentChanged, this, [this](int pagina) {
        if (!sincronizando_) editor_.ventana.SSTab2 = pagina;
    });

    auto* const centro = new QWidget(this);
    auto* const orden = new QVBoxLayout(centro);
    orden->setContentsMargins(6, 6, 6, 2);
    orden->addWidget(SSTab1_, 1);
    orden->addWidget(CrearSalida(centro));
    setCentralWidget(centro);

    CrearMenus();
    CrearBarra();
    documento_ = Nuevo<QLabel>("DocumentoActual", this);
    documento_->setTextFormat(Qt::PlainText);
    documento_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    ConnectionStatus_ = Nuevo<QLabel>("ConnectionStatus", this);
    ConnectionStatus_->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(documento_, 1);
    statusBar()->addPermanentWidget(ConnectionStatus_);

    auto* const tecla = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(tecla, &QShortcut::activated, this, [this] { AyudaDelControl(); });
}

QPushButton* Principal::NuevoBoton(const char* nombre, QWidget* padre, const std::function<void()>& accion) {
    auto* const boton = Nuevo<QPushButton>(nombre, padre);
    boton->setFocusPolicy(Qt::TabFocus);
    connect(boton, &QPushButton::clicked, this, [this, accion] { Hacer(accion); });
    return boton;
}

void Principal::Hacer(const std::function<void()>& accion) {
    ConTrampa(editor_, accion);
    Sincronizar();
}

// ---- The state shown ----

void Principal::Sincronizar() {
    const bool antes = sincronizando_;
    sincronizando_ = true;
    SincronizarRejillas();
    for (const auto& mostrar : sincronias_) mostrar();
    AplicarReglas();
    AplicarConexion();
    SSTab1_->setCurrentIndex(editor_.ventana.SSTab1);
    SSTab2_->setCurrentIndex(editor_.ventana.SSTab2);
    // The star of a changed document stands where the place holder is.
    setWindowTitle(TextoQt(TituloDeVentana(editor_)) + QStringLiteral("[*]"));
    setWindowModified(editor_.HayCambios || editor_.UndoButton);
    documento_->setText(TextoQt(editor_.RutaDocumento));
    sincronizando_ = antes;
}

void Principal::AplicarReglas() {
    const bool adicional = encoding_ == OpcionEncoding::Additional;
    for (const auto& [nombre, estado] : EstadoDeControles(editor_, programa_.ajustes.preferencias, adicional)) {
        auto* const control =
            qobject_cast<QWidget*>(controles_.value(QByteArray::fromRawData(nombre.data(), static_cast<qsizetype>(nombre.size()))));
        if (control == nullptr) continue;
        if (control->isHidden() == estado.visible) control->setVisible(estado.visible);
        control->setEnabled(estado.habilitado);
    }
}

void Principal::AplicarConexion() {
    const bool conectado = conexion_->Conectado();
    const EstadoDelMenu estado = MenuConectado(conectado);
    const auto habilitar = [this](std::initializer_list<const char*> nombres, bool habilitado) {
        for (const char* const nombre : nombres) {
            QObject* const control = controles_.value(nombre);
            if (auto* const ventana = qobject_cast<QWidget*>(control)) ventana->setEnabled(habilitado);
            if (auto* const accion = qobject_cast<QAction*>(control)) accion->setEnabled(habilitado);
        }
    };
    habilitar({"Logon", "ButtonLogon"}, estado.Logon);
    habilitar({"Logoff", "ButtonLogoff"}, estado.Logoff);
    habilitar({"FrameOnline", "ButtonOnlineSHDB", "ButtonOnlineSM35", "ButtonOnlineAnchos", "ButtonOnlinePublish",
               "ButtonOnlinePublishLocal"},
              estado.FrameOnline);
    habilitar({"FrameImportarTransacciones", "ReporteTrans", "ExaminarReporte", "ImportTrans"}, estado.FrameImportarTransacciones);
    habilitar({"FrameImportarAncho", "GenerarInfoCampos", "then1", "ImportInfo"}, estado.FrameImportarAncho);
    for (const char* const nombre : {"GenerateProgram", "Programa", "ExaminarPrograma"}) {
        qobject_cast<QWidget*>(controles_.value(nombre))->setVisible(estado.GenerateProgram);
    }
    ConnectionStatus_->setVisible(estado.ConnectionStatus);
    ConnectionStatus_->setText(TextoQt(conexion_->ConnectionStatus()));
}

// Shows the control's page of the tabs and gives the control the focus.
void Principal::EnfocarControl(const std::string& nombre) {
    if (EnfocarEnDialogo(nombre)) return;
    Sincronizar();
    auto* const control = qobject_cast<QWidget*>(controles_.value(QByteArray::fromStdString(nombre)));
    if (control == nullptr) return;
    for (QWidget* hijo = control; hijo != nullptr && hijo != this; hijo = hijo->parentWidget()) {
        for (auto* const pestanas : {SSTab1_, SSTab2_}) {
            if (const int pagina = pestanas->indexOf(hijo); pagina >= 0) pestanas->setCurrentIndex(pagina);
        }
        if (auto* const pagina = qobject_cast<QScrollArea*>(hijo)) pagina->ensureWidgetVisible(control);
    }
    control->setFocus(Qt::OtherFocusReason);
    if (auto* const caja = qobject_cast<QLineEdit*>(control)) caja->selectAll();
}

// ---- Help ----

void Principal::MostrarAyuda(int mensaje, QWidget* ventana) {
    // A modal dialog shuts out every window but its own.
    if (ventana != nullptr && ventana != this) {
        auto* const propia = new VentanaDeAyuda(programa_.textos, programa_.directorioDeDatos, ventana);
        propia->setAttribute(Qt::WA_DeleteOnClose);
        propia->MostrarPagina(mensaje);
        return;
    }
    if (ayuda_ == nullptr) {
        ayuda_ = new VentanaDeAyuda(programa_.textos, programa_.directorioDeDatos, this);
        ayuda_->setAttribute(Qt::WA_QuitOnClose, false);
    }
    ayuda_->MostrarPagina(mensaje);
}

void Principal::AyudaDelControl() {
    QByteArray nombre;
    for (QWidget* control = focusWidget(); control != nullptr && control != this; control = control->parentWidget()) {
        nombre = control->objectName().toLatin1();
        if (controles_.contains(nombre)) break;
    }
    MostrarAyuda(PaginaDeAyuda(nombre.toStdString(), SSTab1_->currentIndex()));
}

// ---- Start and end ----

void Principal::ActivarPorPrimeraVez(const LineaDeComandos& linea) {
    const PrimeraActivacion plan = PlanearPrimeraActivacion(programa_, linea);
    if (plan.mostrarPresentacion) MostrarPresentacion();
    if (plan.preguntarIdioma) PreguntarIdioma();
    if (cerrado_) return;
    if (!plan.documento.empty()) {
        bool abierto = false;
        ConTrampa(editor_, [&] { abierto = AbrirInicial(editor_, plan.documento); });
        Sincronizar();
        if (!abierto) TerminarCon(1);
        return;
    }
    if (plan.conectar && conexion_->Disponible()) Hacer([this] { conexion_->Logon(); });
}

void Principal::TerminarCon(int estado) {
    cerrado_ = true;
    editor_.CanalDocumento.Cerrar();
    hide();
    QCoreApplication::exit(estado);
}

void Principal::closeEvent(QCloseEvent* evento) {
    if (cerrado_) return evento->accept();
    bool cerrar = false;
    ConTrampa(editor_, [&] { cerrar = CerrarPrograma(programa_, editor_, [this] { conexion_->Logoff(); }); });
    if (!cerrar) {
        evento->ignore();
        Sincronizar();
        return;
    }
    cerrado_ = true;
    GuardarVentana();
    if (ayuda_ != nullptr) ayuda_->close();
    evento->accept();
}

void Principal::showEvent(QShowEvent* evento) {
    QMainWindow::showEvent(evento);
    if (focusWidget() == nullptr && !celdas_.empty()) celdas_.front()->setFocus(Qt::OtherFocusReason);
}

void Principal::changeEvent(QEvent* evento) {
    QMainWindow::changeEvent(evento);
    if (evento->type() == QEvent::PaletteChange && documento_ != nullptr) {
        AplicarPaleta();
        Sincronizar();
    }
}

// Not every desktop gives place holders a colour of its own dark palette.
void Principal::AplicarPaleta() {
    auto* const buscado = qobject_cast<QWidget*>(controles_.value("TextoBuscado"));
    QPalette paleta = buscado->palette();
    QColor color = palette().color(QPalette::Text);
    color.setAlphaF(0.5F);
    paleta.setColor(QPalette::PlaceholderText, color);
    buscado->setPalette(paleta);
}

void Principal::RestaurarVentana() {
    const QSettings ajustes(RutaDeVentana(programa_), QSettings::IniFormat);
    if (restoreGeometry(ajustes.value(QStringLiteral("window/geometry")).toByteArray())) return;
    const QRect pantalla = screen()->availableGeometry();
    if (pantalla.width() <= anchoDePantallaPequena) {
        resize(pantalla.size());
        setWindowState(windowState() | Qt::WindowMaximized);
        return;
    }
    // The layouts learn of their texts and fonts when the window is shown; its size is needed before.
    for (auto* const orden : findChildren<QLayout*>()) orden->invalidate();
    for (auto* const control : findChildren<QWidget*>()) {
        control->ensurePolished();
        control->updateGeometry();
    }
    resize(sizeHint().expandedTo({fontMetrics().averageCharWidth() * 150, 0}).boundedTo(pantalla.size()));
    move(pantalla.center() - rect().center());
}

void Principal::GuardarVentana() const {
    QSettings ajustes(RutaDeVentana(programa_), QSettings::IniFormat);
    ajustes.setValue(QStringLiteral("window/geometry"), saveGeometry());
}

}  // namespace qor
