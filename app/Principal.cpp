#include "app/Principal.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/FormAbout.h"
#include "app/FormEnsayo.h"
#include "app/pages/captions.h"
#include "app/pages/documentation_page.h"
#include "app/pages/findings_pane.h"
#include "app/pages/grids_page.h"
#include "app/pages/options_page.h"
#include "app/pages/output_row.h"
#include "app/pages/panes_below.h"
#include "app/pages/start_page.h"
#include "app/pages/structures_pane.h"
#include "app/pages/tools_page.h"
#include "app/qt/file_memory.h"
#include "app/qt/grid_cell.h"
#include "app/qt/help_window.h"
#include "app/qt/opening_box.h"
#include "app/qt/recent_documents.h"
#include "app/qt/tabs.h"
#include "app/qt/theme_icon.h"
#include "app/qt/toolkit_language.h"
#include "base/failure.h"
#include "base/failure_trap.h"
#include "base/qt/colours.h"
#include "base/qt/reading_order.h"
#include "base/qt/room.h"
#include "base/qt/scroll_page.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "editor/commands.h"
#include "editor/document_commands.h"
#include "editor/grids.h"
#include "editor/option_rules.h"
#include "sap/session.h"

namespace qor {

namespace {

constexpr int letrasComodas = 270;  // of a line of the window

}  // namespace

Principal::Principal(Programa& programa, std::unique_ptr<VistaDePantalla> vista, const FabricaDeConexion& fabrica)
    : programa_(programa),
      vista_(std::move(vista)),
      ventana_(abierto_, programa.textos, *vista_),
      copias_(programa.rutaDeAjustes.parent_path() / "unsaved"),
      lazos_(ventana_, {[this](const Lazos::Accion& accion) {
                            Hacer(accion);
                            return true;
                        },
                        [this](const Lazos::Accion& accion) { return Mandar(accion); }, [this] { GuardarAjustes(); }}) {
    setObjectName(QStringLiteral("Principal"));
    vista_->Servir({// The cells alone: options can be other than the user's while an action runs.
                    .refrescar = [this] { lazos_.SinCambios([this] { rejillas_->MostrarRejillas(); }); },
                    .mostrarFila =
                        [this](Tabla tabla, int fila) {
                            tabla == Tabla::Archivo ? qor::MostrarArchivo(ventana_, fila) : qor::MostrarTransaccion(ventana_, fila);
                            Sincronizar();
                        },
                    .enfocar = [this](const std::string& control) { EnfocarControl(control); },
                    .ventana = this,
                    .editorDeTextos = [this] { return programa_.ajustes.EditorDeTextos; },
                    .lugares = [this](ClaseDeArchivo clase) { return LugaresDe(programa_, abierto_.ruta, clase); },
                    .recordar = [this](ClaseDeArchivo clase, const auto& elegido) { RecordarLugar(programa_, clase, elegido); }});
    if (fabrica)
        conexion_ = fabrica({programa_, ventana_, *vista_, this, [this] { lazos_.SinCambios([this] { MostrarConexion(); }); }});
    if (!conexion_) conexion_ = SinConexion(*vista_);
    Construir();
    RefrescarIdioma();
    RestaurarVentana();
}

Principal::~Principal() {
    // Controls that go with the form have nothing to tell any more.
    lazos_.Callar();
    ensayo_.reset();
    delete takeCentralWidget();
    vista_->Servir({});
}

void Principal::Construir() {
    setWindowIcon(IconoDeTema("program"));
    DistinguirTextosDeEspera();
    CrearPaginas();
    CrearMenus();
    CrearBarra();
    CrearEstado();
    CrearTeclasDeAyuda();
    controles_ = Controles(*this);
    OrdenarTabulador(*centralWidget());
    setAcceptDrops(true);
    qApp->installEventFilter(this);
}

void Principal::CrearPaginas() {
    const EntornoDePagina entorno{programa_, ventana_, *vista_, lazos_};
    rejillas_ =
        new PaginaDeRejillas(entorno, {{[this](FilaDeTabla fila) { ClicNotas(fila); }, [this](int fila) { ClicCodigo(fila); },
                                        [this](LugarDeCelda lugar, const QPoint& punto) { MenuDeCelda(lugar, punto); }},
                                       {[this] { ClicAgregarOperacion(); }, [this] { ClicCondiciones(); }},
                                       {[this] { ClicOrigen(); }, [this](const auto& archivo) { ClicDatos(archivo); }}});
    opciones_ = new PaginaDeOpciones(entorno);
    herramientas_ = new PaginaDeHerramientas(entorno, *conexion_, [this] { ClicEditorBDC(); });

    centro_ = new QStackedWidget(this);
    auto* const trabajo = new QWidget(centro_);
    SSTab1_ = Nuevo<Pestanas>("SSTab1", trabajo);
    SSTab2_ = opciones_->SSTab2();
    for (QWidget* const pagina :
         std::initializer_list<QWidget*>{rejillas_, opciones_, herramientas_, new PaginaDeDocumentacion(entorno)}) {
        SSTab1_->addTab(new PaginaDesplazable(pagina), {});
    }
    SSTab1_->PonerTeclas();
    // The state is that of the strip before a cell loses the focus with its page, and shows everything anew.
    connect(SSTab1_, &Pestanas::Elegida, this, [this](int pagina) { ventana_.SSTab1 = pagina; });
    connect(SSTab2_, &Pestanas::Elegida, this, [this](int pagina) { ventana_.SSTab2 = pagina; });
    SSTab1_->PonerPermiso([this] { return lazos_.Mandar([] {}); });
    salida_ = new FilaDeSalida(
        entorno, [this] { ClicGenerar(); }, trabajo);
    auto* const orden = new QVBoxLayout(trabajo);
    orden->setContentsMargins(6, 6, 6, 2);
    orden->addWidget(SSTab1_, 1);
    orden->addWidget(salida_);
    inicio_ = NuevoInicio(centro_);
    centro_->addWidget(trabajo);
    centro_->addWidget(inicio_);
    setCentralWidget(ConPanelesDeAbajo(centro_));
}

// The status bar.
void Principal::CrearEstado() {
    documento_ = Nuevo<QLabel>("DocumentoActual", this);
    documento_->setTextFormat(Qt::PlainText);
    documento_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    ConnectionStatus_ = Nuevo<QLabel>("ConnectionStatus", this);
    ConnectionStatus_->setTextFormat(Qt::PlainText);
    constexpr int margen = 6;
    for (auto* const rotulo : {documento_, ConnectionStatus_}) rotulo->setContentsMargins(margen, 0, margen, 0);
    // The hint under the grid, where the page has been scrolled away from it.
    lazos_.AlMostrar([this, mostrado = QString()]() mutable {
        const QString aviso = TextoQt(ventana_.aviso);
        if (aviso == std::exchange(mostrado, aviso)) return;
        const bool aLaVista = !controles_.Buscar<QLabel>("AvisoDeRejilla")->visibleRegion().isEmpty();
        aviso.isEmpty() || aLaVista ? statusBar()->clearMessage() : statusBar()->showMessage(aviso);
    });
    statusBar()->addWidget(documento_, 1);
    statusBar()->addPermanentWidget(ConnectionStatus_);
}

CeldaDeRejilla* Principal::CeldaActual() const { return qobject_cast<CeldaDeRejilla*>(focusWidget()); }

void Principal::Hacer(const std::function<void()>& accion) {
    ConTrampa(ventana_.vista, accion);
    Sincronizar();
    copias_.QuitarSiGuardado(abierto_);
}

bool Principal::Mandar(const std::function<void()>& accion) {
    const bool empezado = EjecutarComando(ventana_, accion, [this]() -> std::optional<LugarDeCelda> {
        if (const auto* const celda = CeldaActual()) return celda->Lugar();
        return std::nullopt;
    });
    Sincronizar();
    copias_.QuitarSiGuardado(abierto_);
    return empezado;
}

void Principal::GuardarAjustes() {
    const bool guardado = GuardarElecciones(programa_);
    if (!guardado && !sinGuardarAvisado_) vista_->Advertir(programa_.falloDeAjustes);
    sinGuardarAvisado_ = !guardado;
}

// ---- The state shown ----

void Principal::Sincronizar() {
    lazos_.SinCambios([this] {
        rejillas_->MostrarRejillas();
        lazos_.MostrarTodo();
        AplicarReglas();
        MostrarConexion();
        SSTab1_->setCurrentIndex(ventana_.SSTab1);
        SSTab2_->setCurrentIndex(ventana_.SSTab2);
        setWindowModified(ventana_.documento.HayCambios());
        documento_->setText(NombreQt(ventana_.documento.ruta));
    });
    if (HayTrabajo()) OcultarInicio();
    AnotarReciente();
    VigilarHallazgos();
    estructuras_->Seguir();
    if (ensayo_) ensayo_->MirarDocumento();
}

void Principal::AplicarReglas() {
    const bool adicional = opciones_->OptionEncodingAdditional();
    for (const auto& [nombre, estado] : EstadoDeControles(ventana_, programa_.ajustes.preferencias, adicional)) {
        auto* const control =
            controles_.Buscar<QWidget>(QByteArray::fromRawData(nombre.data(), static_cast<qsizetype>(nombre.size())));
        if (control == nullptr) continue;
        // A tool button is on with its action, which is in a menu too.
        if (const auto* const boton = qobject_cast<QToolButton*>(control); boton != nullptr && boton->defaultAction() != nullptr) {
            boton->defaultAction()->setEnabled(estado.habilitado);
            continue;
        }
        if (control->isHidden() == estado.visible) control->setVisible(estado.visible);
        control->setEnabled(estado.habilitado);
    }
}

void Principal::MostrarConexion() {
    if (!conexion_->EsDePractica()) catalogoDePractica_.clear();
    const EstadoDelMenu estado = MenuConectado(conexion_->Conectado());
    controles_.Buscar<QAction>("Logon")->setEnabled(estado.Logon);
    controles_.Buscar<QAction>("Logoff")->setEnabled(estado.Logoff);
    controles_.Buscar<QAction>("KeepRecordingOption")->setEnabled(conexion_->EsDePractica());
    herramientas_->MostrarConexion(estado);
    salida_->MostrarPrograma(estado.GenerateProgram);
    ConnectionStatus_->setVisible(estado.ConnectionStatus);
    QString sistema = TextoQt(conexion_->ConnectionStatus());
    if (conexion_->EsDePractica()) sistema += QStringLiteral(" - ") + Palabra(programa_.textos, palabra::SistemaDePractica);
    ConnectionStatus_->setText(sistema);
    MostrarTitulo();
}

// The star of a changed document stands where the place holder is; behind it the system that commands lead to.
void Principal::MostrarTitulo() {
    QString titulo = QString::fromStdString(TituloDeVentana(ventana_.documento)) + QStringLiteral("[*]");
    if (conexion_->EsDePractica()) {
        titulo += QStringLiteral("  -  ") + Palabra(programa_.textos, palabra::SistemaDePractica);
    } else if (conexion_->Conectado()) {
        titulo += QStringLiteral("  -  ") + TextoQt(conexion_->ConnectionStatus());
    }
    setWindowTitle(titulo);
}

// Everything anew in the loaded language.
void Principal::RefrescarIdioma() {
    lazos_.SinCambios([this] {
        CambiarIdiomaDeQt(programa_.textos.Palabra(palabra::CodigoDelIdioma));
        PonerRotulos(controles_, programa_.textos);
        inicio_->RefrescarIdioma();
        NombrarPorRotulos(*this);
        inicio_->MostrarRecientes(DocumentosRecientes(RutaDeMemoria(programa_)));
    });
    if (ayuda_ != nullptr) ayuda_->RefrescarIdioma();
    ensayo_.reset();
    hallazgos_->RefrescarIdioma();
    estructuras_->RefrescarIdioma();
    Sincronizar();
    // Sentences are in the language in which they were made.
    if (!vigia_.Lista().empty()) MirarHallazgos();
}

// Shows the control's page of the tabs and gives the control the focus.
void Principal::EnfocarControl(const std::string& nombre) {
    if (EnfocarEnDialogo(nombre)) return;
    OcultarInicio();
    Sincronizar();
    auto* const control = controles_.Buscar<QWidget>(QByteArray::fromStdString(nombre));
    if (control == nullptr) return;
    for (QWidget* hijo = control; hijo != nullptr && hijo != this; hijo = hijo->parentWidget()) {
        for (QTabWidget* const pestanas : {SSTab1_, SSTab2_}) {
            if (const int pagina = pestanas->indexOf(hijo); pagina >= 0) pestanas->setCurrentIndex(pagina);
        }
        if (auto* const pagina = qobject_cast<QScrollArea*>(hijo)) pagina->ensureWidgetVisible(control);
    }
    control->setFocus(Qt::OtherFocusReason);
    if (auto* const caja = qobject_cast<QLineEdit*>(control)) caja->selectAll();
}

// All that the application's windows are told passes here first: F1, What's this?, and files that are dropped.
bool Principal::eventFilter(QObject* objeto, QEvent* evento) {
    auto* const control = qobject_cast<QWidget*>(objeto);
    if (control == nullptr) return false;
    switch (evento->type()) {
        case QEvent::KeyPress: return static_cast<QKeyEvent*>(evento)->key() == Qt::Key_F1 && AyudaDelDialogo(*control);
        case QEvent::QueryWhatsThis:
        case QEvent::WhatsThis: return control->window() == this && QueEsEsto(*control, *evento);
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop: return control->window() == this && RecibirSoltado(*evento);
        default: return false;
    }
}

// ---- Start and end ----

void Principal::ActivarPorPrimeraVez(const Arranque& arranque) {
    const PrimeraActivacion plan = PlanearPrimeraActivacion(programa_, arranque);
    if (!plan.mostrarPresentacion) return SeguirActivacion(plan);
    auto* const caja = new FormAbout(programa_.textos, QApplication::applicationVersion(), this);
    MostrarAlEmpezar(caja, [this, plan] { SeguirActivacion(plan); });
}

void Principal::SeguirActivacion(const PrimeraActivacion& plan) {
    if (plan.preguntarIdioma) PreguntarIdioma();
    if (cerrado_) return;
    CuidarTrabajo();
    if (OfrecerTrabajo()) return;
    if (!plan.documento.empty()) {
        Mandar([&] { AbrirInicial(programa_, ventana_, plan.documento); });
        return MostrarInicio();
    }
    if (plan.conectar && conexion_->Disponible()) Mandar([this] { conexion_->Logon(); });
    MostrarInicio();
}

void Principal::CuidarTrabajo() {
    constexpr int milisegundosEntreCopias = 30'000;
    auto* const reloj = new QTimer(this);
    reloj->setObjectName(QStringLiteral("RelojDeCopias"));
    connect(reloj, &QTimer::timeout, this, [this] {
        try {
            copias_.Actualizar(abierto_);
        } catch (const FalloDeArchivo& fallo) {
            // A box would stand in the way of the work again and again.
            statusBar()->showMessage(Palabra(programa_.textos, palabra::NoSePuedeCopiarElTrabajo) + QLatin1Char(' ') +
                                     QString::fromStdString(fallo.Detalle()));
        }
    });
    reloj->start(milisegundosEntreCopias);
}

bool Principal::OfrecerTrabajo() {
    bool restaurado = false;
    for (auto& copia : copias_.Abandonadas()) {
        const auto& ruta = copia.documento.ruta;
        const auto nombre = ruta.empty() ? programa_.textos.Palabra(palabra::UnDocumentoNuevo) : TextoDelModelo(NombreQt(ruta));
        const auto pregunta = MensajeDePalabra(programa_.textos, palabra::QuedoTrabajoSinGuardar, {nombre, copia.cuando});
        switch (vista_->Preguntar(pregunta, Botones::RestaurarDescartarLuego)) {
            case Respuesta::Si:
                Hacer([&] {
                    RestaurarTrabajo(ventana_, std::move(copia.documento));
                    copias_.Adoptar(copia, abierto_);
                });
                restaurado = true;
                break;
            case Respuesta::No: CopiasDeTrabajo::Descartar(copia); break;
            default: break;
        }
        if (restaurado) break;
    }
    return restaurado;
}

void Principal::TerminarCon(int estado) {
    cerrado_ = true;
    ensayo_.reset();
    ventana_.documento.canal.Cerrar();
    hide();
    QCoreApplication::exit(estado);
}

void Principal::closeEvent(QCloseEvent* evento) {
    if (cerrado_) return evento->accept();
    bool cerrar = false;
    Mandar([&] { cerrar = CerrarPrograma(programa_, ventana_, [this] { conexion_->Logoff(); }); });
    if (!cerrar) return evento->ignore();
    cerrado_ = true;
    copias_.Quitar();
    GuardarVentana();
    if (ayuda_ != nullptr) ayuda_->close();
    ensayo_.reset();
    evento->accept();
}

void Principal::showEvent(QShowEvent* evento) {
    QMainWindow::showEvent(evento);
    if (focusWidget() == nullptr) controles_.Buscar<QWidget>("Text1_0")->setFocus(Qt::OtherFocusReason);
}

void Principal::changeEvent(QEvent* evento) {
    QMainWindow::changeEvent(evento);
    if (evento->type() != QEvent::PaletteChange || documento_ == nullptr) return;
    DistinguirTextosDeEspera();
    Sincronizar();
}

void Principal::RestaurarVentana() {
    const QSettings ajustes(NombreQt(RutaDeMemoria(programa_)), QSettings::IniFormat);
    division_->PonerAlto(ajustes.value(QStringLiteral("findings/height")).toInt());
    EncenderEstructuras(ajustes.value(QStringLiteral("structures/shown"), true).toBool());
    rejillas_->RestaurarReparto(ajustes);
    // The layouts learn of their texts and fonts when the window is shown; its size, and what is left for the panes, is needed
    // before.
    for (auto* const orden : findChildren<QLayout*>()) orden->invalidate();
    for (auto* const control : findChildren<QWidget*>()) {
        control->ensurePolished();
        control->updateGeometry();
    }
    if (restoreGeometry(ajustes.value(QStringLiteral("window/geometry")).toByteArray())) return;
    const QSize sitio = SitioEnPantalla(*this);
    const QSize menor = sizeHint();
    const QSize conPaneles(menor.width(), menor.height() * 4 / 3);
    // Where the pages with panes below them do not fit, the window takes the whole screen.
    if (conPaneles != conPaneles.boundedTo(sitio)) {
        resize(sitio);
        setWindowState(windowState() | Qt::WindowMaximized);
        return;
    }
    // Else most of its width, but no wider than what can be overlooked.
    const int ancho = std::min(fontMetrics().averageCharWidth() * letrasComodas, sitio.width() * 9 / 10);
    resize(conPaneles.expandedTo({ancho, 0}));
    const QRect pantalla = screen()->availableGeometry();
    move(pantalla.topLeft() + QPoint(pantalla.width() - width(), sitio.height() - height()) / 2);
}

void Principal::GuardarVentana() const {
    QSettings ajustes(NombreQt(RutaDeMemoria(programa_)), QSettings::IniFormat);
    ajustes.setValue(QStringLiteral("window/geometry"), saveGeometry());
    rejillas_->GuardarReparto(ajustes);
    ajustes.setValue(QStringLiteral("structures/shown"), estructuras_->Encendido());
    if (division_->Alto() > 0) ajustes.setValue(QStringLiteral("findings/height"), division_->Alto());
}

}  // namespace qor
