#include "app/FormDatos.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/input_files.h"
#include "app/qt/data_check.h"
#include "app/qt/fill_file_side.h"
#include "app/qt/theme_icon.h"
#include "app/qt/window_memory.h"
#include "base/failure_trap.h"
#include "base/message_text.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "editor/file_side.h"
#include "editor/option_rules.h"
#include "editor/undo_command.h"
#include "input/qt/kind_panel.h"
#include "input/qt/line_ruler.h"
#include "input/qt/record_model.h"
#include "input/qt/record_table.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeHallazgos = 5'000;  // of errors, and of hints
constexpr int milisegundosPorMirada = 100;
constexpr int miradasPorIdentidad = 10;
constexpr int milisegundosDePausa = 600;
constexpr int anchoConLado = 1'100;  // of a screen on which the checks of a field are shown from the beginning
constexpr int rotuloDeExaminar = 80;
constexpr int rotuloDeAyuda = 132;

}  // namespace

FormDatos::FormDatos(Ventana& ventana, EntornoDeDatos entorno, const std::filesystem::path& principal, QWidget* padre)
    : Dialogo(ventana.textos, "FormDatos", padre),
      ventana_(ventana),
      entorno_(std::move(entorno)),
      controles_(ventana, entorno_.alCambiar) {
    setWindowTitle(Palabra(palabra::VistaDeLosDatos));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(false);
    auto* const orden = new QVBoxLayout(this);
    orden->setContentsMargins(8, 8, 8, 8);
    orden->setSpacing(5);
    orden->addLayout(CrearCabeza());
    orden->addWidget(CrearVacio());
    orden->addWidget(CrearVista(), 1);
    orden->addLayout(CrearPie());
    CrearTeclas();
    OrdenarFoco();

    LeerDiseno();
    ElegirRutas(principal);
    connect(&reloj_, &QTimer::timeout, this, &FormDatos::Mirar);
    reloj_.start(milisegundosPorMirada);
    pausa_.setSingleShot(true);
    connect(&pausa_, &QTimer::timeout, this, &FormDatos::EmpezarRevision);
    MostrarArchivo(0);
    EmpezarRevision();
    PonerTamano(190, 44);
    // On a small screen there is no room for a frame around it.
    if (!RecuperarLugares(entorno_.memoria, *this) && size().height() + AltoDeLineas(3) > screen()->availableSize().height())
        setWindowState(windowState() | Qt::WindowMaximized);
    tabla_->setFocus();
}

FormDatos::~FormDatos() { RecordarLugares(entorno_.memoria, *this); }

bool FormDatos::PuedeCerrar() { return controles_.PuedenDejarse(); }

// ---- Controls ----

QLayout* FormDatos::CrearCabeza() {
    ruta_ = new QLineEdit(this);
    ruta_->setObjectName(QStringLiteral("Archivo"));
    ruta_->setReadOnly(true);
    ruta_->setPlaceholderText(Palabra(palabra::NoSeEligioNingunArchivo));
    auto* const examinar = NuevoBoton("Examinar", Rotulo(rotuloDeExaminar));
    auto* const recargar = NuevoBoton("Recargar", Palabra(palabra::Recargar));
    recargar->setToolTip(QStringLiteral("F5"));
    connect(examinar, &QPushButton::clicked, this, &FormDatos::ElegirArchivo);
    connect(recargar, &QPushButton::clicked, this, [this] { Abrir(Archivo().Ruta()); });
    linea_ = new QLineEdit(this);
    linea_->setObjectName(QStringLiteral("IrALinea"));
    linea_->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,18}")), linea_));
    linea_->setMaximumWidth(AnchoDeLetras(14));
    linea_->setPlaceholderText(Palabra(palabra::EjemploDeNumero));
    connect(linea_, &QLineEdit::returnPressed, this, [this] {
        const auto pedida = linea_->text().toULongLong();
        if (pedida > 0) tabla_->IrA(pedida - 1);
        linea_->clear();
        tabla_->setFocus();
    });
    auto* const fila = new QHBoxLayout;
    fila->addWidget(NuevoRotulo("ArchivoLabel", Palabra(palabra::RotuloArchivo), ruta_));
    fila->addWidget(ruta_, 1);
    fila->addWidget(examinar);
    fila->addWidget(recargar);
    fila->addWidget(NuevoRotulo("IrALineaLabel", Palabra(palabra::IrALaLinea), linea_));
    fila->addWidget(linea_);
    return fila;
}

// Shown while the file side is empty.
QWidget* FormDatos::CrearVacio() {
    vacio_ = new QWidget(this);
    vacio_->setObjectName(QStringLiteral("LadoVacio"));
    auto* const explicacion = NuevaExplicacion("LadoVacioTexto", Palabra(palabra::ElLadoDelArchivoNoTieneCampos));
    explicacion->setParent(vacio_);
    deCabecera_ = NuevoBoton("LlenarDeCabecera", Palabra(palabra::CamposDeLaCabecera));
    deMarcas_ = NuevoBoton("LlenarDeMarcas", Palabra(palabra::CamposDeLasMarcas));
    connect(deCabecera_, &QPushButton::clicked, this, [this] {
        Editar([this] {
            if (Archivo().Indice()) LlenarLadoDeCabecera(ventana_, *diseno_, *Archivo().Indice());
        });
        if (LadoVacio()) return;
        ventana_.vista.Informar(MensajeDePalabra(Textos(), palabra::LosAnchosSonDeLosValoresLargos));
    });
    connect(deMarcas_, &QPushButton::clicked, this, [this] {
        Editar([this] {
            if (Archivo().Indice()) LlenarLadoDeMarcas(ventana_, *diseno_, *Archivo().Indice(), regla_->Marcas());
        });
    });
    auto* const fila = new QHBoxLayout(vacio_);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->addWidget(explicacion, 1);
    fila->addWidget(deCabecera_);
    fila->addWidget(deMarcas_);
    return vacio_;
}

QWidget* FormDatos::CrearVista() {
    pestanas_ = new QTabBar(this);
    pestanas_->setObjectName(QStringLiteral("Archivos"));
    pestanas_->setAccessibleName(Palabra(palabra::ArchivosDeEntrada));
    pestanas_->setDrawBase(false);
    pestanas_->setExpanding(false);
    connect(pestanas_, &QTabBar::currentChanged, this, [this](int archivo) {
        if (archivo >= 0 && archivo != archivo_) MostrarArchivo(archivo);
    });
    modelo_ = new ModeloDeRegistros(Textos(), this);
    revision_ = new RevisionDeDatos(Textos(), this);
    modelo_->PonerHallazgos(&revision_->Hallazgos());
    modelo_->PonerIconos(IconoDeTema("finding-error"), IconoDeTema("finding-warning"));
    tabla_ = new TablaDeRegistros(modelo_, this);
    tabla_->Rejilla()->setAccessibleName(Palabra(palabra::RegistrosDelArchivo));
    regla_ = new ReglaDeLinea(Textos(), this);
    regla_->setObjectName(QStringLiteral("Regla"));
    estadoDeLineas_ = NuevoRotulo("EstadoDeLineas", {});
    estadoDeLineas_->setTextFormat(Qt::PlainText);
    estadoDeLineas_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    connect(tabla_, &TablaDeRegistros::ActualCambiada, this, &FormDatos::MostrarActual);
    connect(regla_, &ReglaDeLinea::AnchoPedido, this,
            [this](int campo, qulonglong ancho) { Editar([&] { PonerAncho(campo, ancho); }); });
    connect(regla_, &ReglaDeLinea::CampoTocado, this,
            [this](int campo) { tabla_->IrA(tabla_->Actual(), modelo_->ColumnaDeCampo(campo)); });
    connect(regla_, &ReglaDeLinea::MarcasCambiadas, this, &FormDatos::Habilitar);

    auto* const registros = new QWidget(this);
    auto* const deRegistros = new QVBoxLayout(registros);
    deRegistros->setContentsMargins(0, 0, 0, 0);
    deRegistros->setSpacing(3);
    deRegistros->addWidget(pestanas_);
    deRegistros->addWidget(tabla_, 1);
    deRegistros->addWidget(estadoDeLineas_);
    deRegistros->addWidget(regla_);

    clase_ = new PanelDeClase(
        Textos(), [this] { return ventana_.vista.ElegirParaAbrir({ClaseDeArchivo::ListaDeValores}); }, this);
    guardarClases_ = NuevoBoton("GuardarClases", Palabra(palabra::GuardarLosControles));
    connect(clase_, &PanelDeClase::Cambiada, this, &FormDatos::CambiarClase);
    connect(guardarClases_, &QPushButton::clicked, this, [this] {
        controles_.Guardar();
        Habilitar();
    });
    auto* const deslizable = new QScrollArea(this);
    deslizable->setObjectName(QStringLiteral("LadoDeClases"));
    deslizable->setWidgetResizable(true);
    deslizable->setFrameShape(QFrame::NoFrame);
    deslizable->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const contenido = new QWidget(deslizable);
    auto* const deLado = new QVBoxLayout(contenido);
    deLado->setContentsMargins(4, 0, 0, 0);
    deLado->addWidget(clase_);
    deLado->addWidget(guardarClases_, 0, Qt::AlignRight);
    deLado->addStretch();
    deslizable->setWidget(contenido);
    deslizable->setMinimumWidth(contenido->minimumSizeHint().width() + 20);
    lado_ = deslizable;

    auto* const horizontal = new QSplitter(Qt::Horizontal, this);
    horizontal->setObjectName(QStringLiteral("DivisionDeLado"));
    horizontal->setChildrenCollapsible(false);
    horizontal->addWidget(registros);
    horizontal->addWidget(lado_);
    horizontal->setStretchFactor(0, 1);
    horizontal->setStretchFactor(1, 0);

    auto* const panel = revision_->Panel();
    connect(panel, &PanelDeHallazgosDeDatos::Activado, this, &FormDatos::IrAHallazgo);
    connect(panel, &PanelDeHallazgosDeDatos::VecinoPedido, this, &FormDatos::IrAVecino);
    connect(panel, &PanelDeHallazgosDeDatos::RevisionPedida, this, &FormDatos::EmpezarRevision);
    connect(revision_, &RevisionDeDatos::HallazgosCambiados, modelo_, &ModeloDeRegistros::HallazgosCambiados);
    auto* const vertical = new QSplitter(Qt::Vertical, this);
    vertical->setObjectName(QStringLiteral("DivisionDeHallazgos"));
    vertical->setChildrenCollapsible(false);
    vertical->addWidget(horizontal);
    vertical->addWidget(panel);
    vertical->setStretchFactor(0, 3);
    vertical->setStretchFactor(1, 1);
    vertical->setSizes({AltoDeLineas(30), AltoDeLineas(13)});
    return vertical;
}

QLayout* FormDatos::CrearPie() {
    auto* const ayuda = NuevaAyuda("Ayuda", Rotulo(rotuloDeAyuda), entorno_.ayuda, 0);
    deshacer_ = NuevoBoton("Deshacer", Palabra(palabra::Deshacer));
    deshacer_->setToolTip(QKeySequence(QKeySequence::Undo).toString(QKeySequence::NativeText));
    connect(deshacer_, &QPushButton::clicked, this, &FormDatos::DeshacerPaso);
    mostrarLado_ = NuevoBoton("MostrarClases", Palabra(palabra::BotonControlesDelCampo));
    mostrarLado_->setCheckable(true);
    mostrarLado_->setChecked(screen()->availableSize().width() >= anchoConLado);
    lado_->setVisible(mostrarLado_->isChecked());
    connect(mostrarLado_, &QPushButton::toggled, lado_, &QWidget::setVisible);
    auto* const cerrar = NuevoBoton("Cerrar", Palabra(palabra::Cerrar));
    connect(cerrar, &QPushButton::clicked, this, &QDialog::accept);
    return FilaDeBotones({ayuda, mostrarLado_, deshacer_, cerrar}, 1);
}

void FormDatos::CrearTeclas() {
    const auto tecla = [this](const QKeySequence& cual, const std::function<void()>& accion) {
        connect(new QShortcut(cual, this), &QShortcut::activated, this, accion);
    };
    tecla(Qt::Key_F8, [this] { IrAVecino(1); });
    tecla(Qt::SHIFT | Qt::Key_F8, [this] { IrAVecino(-1); });
    tecla(Qt::Key_F5, [this] { Abrir(Archivo().Ruta()); });
    tecla(QKeySequence::Undo, [this] { DeshacerPaso(); });
}

void FormDatos::OrdenarFoco() {
    QWidget* antes = nullptr;
    for (const char* const nombre : {"TablaDeRegistros",
                                     "Regla",
                                     "Obligatorio",
                                     "TipoDeCampo",
                                     "SignoDecimal",
                                     "FormatoDeFecha",
                                     "PatronDeCampo",
                                     "ListaDeValores",
                                     "ExaminarLista",
                                     "GuardarClases",
                                     "DetenerRevision",
                                     "Revisar",
                                     "HallazgoAnterior",
                                     "HallazgoSiguiente",
                                     "ListaDeHallazgosDeDatos",
                                     "Ayuda",
                                     "MostrarClases",
                                     "Deshacer",
                                     "Cerrar",
                                     "Archivo",
                                     "Examinar",
                                     "Recargar",
                                     "IrALinea",
                                     "LlenarDeCabecera",
                                     "LlenarDeMarcas",
                                     "Archivos"}) {
        auto* const control = findChild<QWidget*>(QString::fromLatin1(nombre));
        if (antes != nullptr) setTabOrder(antes, control);
        antes = control;
    }
}

// ---- Files ----

void FormDatos::ElegirRutas(const std::filesystem::path& principal) {
    QStringList nombres;
    const auto& archivos = diseno_->Archivos();
    for (std::size_t i = 0; i < archivos.size(); ++i) {
        auto ruta = i == 0 ? principal : std::filesystem::path();
        if (ruta.empty() && entorno_.recordado) ruta = entorno_.recordado(archivos[i].nombre);
        if (ruta.empty() || !Existe(ruta)) ruta = ArchivoDelDocumento(ventana_.documento, static_cast<int>(i));
        archivos_.push_back(std::make_unique<ArchivoVisto>(archivos[i].nombre));
        archivos_.back()->Abrir(ruta);
        nombres << QString::fromStdString(archivos[i].nombre);
        pestanas_->addTab((i == 0 ? Palabra(palabra::RegistrosPrincipales) : Palabra(palabra::StepLoop).arg(i)) +
                          QStringLiteral(" (") + nombres.last() + QLatin1Char(')'));
    }
    pestanas_->setVisible(archivos_.size() > 1);
    pestanas_->updateGeometry();  // tabs that came before the bar was seen have no height yet
    revision_->Panel()->Modelo()->PonerArchivos(nombres);
    revision_->Panel()->MostrarArchivos(archivos_.size() > 1);
}

void FormDatos::MostrarArchivo(int archivo) {
    archivo_ = archivo;
    if (pestanas_->currentIndex() != archivo) pestanas_->setCurrentIndex(archivo);
    pedido_.reset();
    cambiado_ = false;
    const QString nombre = NombreQt(Archivo().Ruta());
    ruta_->setText(nombre);
    ruta_->setToolTip(nombre);
    modelo_->PonerArchivo(Archivo().Indice(), archivo);
    tabla_->Empezar();
    tabla_->PonerLineas(Archivo().Indice() ? Archivo().Indice()->Lineas() : 0);
    tabla_->Refrescar();
    tabla_->AjustarColumnas();
    Habilitar();
}

void FormDatos::ElegirArchivo() {
    const auto elegido = ventana_.vista.ElegirParaAbrir({ClaseDeArchivo::Entrada, todosLosArchivos, Archivo().Ruta()});
    if (!elegido) return;
    if (entorno_.recordar) entorno_.recordar(Archivo().Parametro(), *elegido);
    Abrir(*elegido);
}

// The file may be another one by now: it is opened and counted anew.
void FormDatos::Abrir(const std::filesystem::path& ruta) {
    modelo_->PonerArchivo(nullptr, archivo_);
    Archivo().Abrir(ruta);
    MostrarArchivo(archivo_);
    EmpezarRevision();
}

void FormDatos::Mirar() {
    if (Archivo().Indice()) tabla_->PonerLineas(Archivo().Indice()->Lineas());
    if (pedido_) {
        const auto [archivo, linea, fila] = *pedido_;
        if (archivo == archivo_ && (Archivo().Indice()->Lineas() >= linea || Archivo().Indice()->Completo()))
            IrA(archivo, linea, fila);
    }
    if (++miradas_ % miradasPorIdentidad == 0) cambiado_ = Archivo().HaCambiado();
    MostrarEstado();
    revision_->Mirar();
}

// ---- The document ----

void FormDatos::LeerDiseno() {
    diseno_ = std::make_shared<DisenoDeEntrada>(ventana_.documento.especificacion, ventana_.documento.opciones);
    modelo_->PonerDiseno(diseno_);
    vacio_->setVisible(LadoVacio());
    regla_->PermitirMarcas(LadoVacio() && !diseno_->PorTabuladores());
}

bool FormDatos::LadoVacio() const { return ventana_.documento.especificacion.FilasArchivo() == 0; }

void FormDatos::Editar(const std::function<void()>& accion) {
    const auto antes = ventana_.documento.Revision();
    ConTrampa(ventana_.vista, accion);
    if (ventana_.documento.Revision() == antes) return;
    ++pasos_;
    TrasCambio();
}

// The table, the ruler and the findings follow the document.
void FormDatos::TrasCambio() {
    const int columnas = modelo_->columnCount();
    ConTrampa(ventana_.vista, [this] { LeerDiseno(); });
    tabla_->Refrescar();
    if (modelo_->columnCount() != columnas) tabla_->AjustarColumnas();
    tabla_->IrA(tabla_->Actual());
    revision_->Quitar();
    pausa_.start(milisegundosDePausa);
    Habilitar();
    if (entorno_.alCambiar) entorno_.alCambiar();
}

void FormDatos::PonerAncho(int campo, std::uint64_t ancho) {
    const int fila = tabla_->FilaActual();
    const auto* const clase = fila < 0 ? nullptr : modelo_->Clase(fila);
    if (clase == nullptr) return;
    CambiarAncho(ventana_, clase->campos.at(static_cast<std::size_t>(campo)).fila, std::to_string(ancho));
}

void FormDatos::DeshacerPaso() {
    if (!deshacer_->isEnabled()) return;
    --pasos_;
    ConTrampa(ventana_.vista, [this] { Deshacer(ventana_); });
    TrasCambio();
}

// ---- Kinds of fields ----

std::string FormDatos::CampoActual() const {
    const int fila = tabla_->FilaActual();
    const int campo = fila < 0 ? -1 : modelo_->CampoDeColumna(fila, tabla_->ColumnaActual());
    return campo < 0 ? std::string() : modelo_->Clase(fila)->campos.at(static_cast<std::size_t>(campo)).nombre;
}

void FormDatos::CambiarClase() {
    if (clase_->Campo().empty() || !clase_->Clase()) return;
    controles_.Poner(clase_->Campo(), *clase_->Clase());
    pausa_.start(milisegundosDePausa);
    Habilitar();
}

// The whole of the current field, or its value where it has no width.
TramoDeLinea FormDatos::TramoActual() const {
    const int fila = tabla_->FilaActual();
    const int campo = modelo_->CampoDeColumna(fila, tabla_->ColumnaActual());
    if (campo < 0 || diseno_->PorTabuladores()) return modelo_->Tramo(fila, tabla_->ColumnaActual());
    const auto& descrito = modelo_->Clase(fila)->campos.at(static_cast<std::size_t>(campo));
    return {descrito.columna, descrito.ancho};
}

// ---- Findings ----

void FormDatos::EmpezarRevision() {
    pausa_.stop();
    RevisionEnFondo::Pedido pedido{diseno_, controles_.Clases(), ventana_.documento.ruta, {}, maximoDeHallazgos};
    bool hay = false;
    for (const auto& archivo : archivos_) {
        pedido.archivos.push_back(archivo->Indice() ? archivo->Ruta() : std::filesystem::path());
        hay = hay || archivo->Indice();
    }
    if (hay && !LadoVacio()) return revision_->Empezar(std::move(pedido));
    revision_->Quitar();
}

void FormDatos::IrAHallazgo(int hallazgo) {
    const auto elegido = revision_->Hallazgos().Lista().at(static_cast<std::size_t>(hallazgo));
    IrA(elegido.archivo, elegido.linea, elegido.fila);
    revision_->Panel()->Elegir(hallazgo);
}

void FormDatos::IrAVecino(int paso) {
    const int vecino = revision_->Vecino(archivo_, tabla_->Actual() + 1, paso);
    if (vecino >= 0) IrAHallazgo(vecino);
}

void FormDatos::IrA(int archivo, std::uint64_t linea, int fila) {
    if (archivo != archivo_) MostrarArchivo(archivo);
    const auto lugar = linea == 0 ? 0 : linea - 1;
    tabla_->IrA(lugar);
    // Of a large file that line may not be known yet.
    pedido_.reset();
    if (tabla_->Actual() < lugar && Archivo().Indice() && !Archivo().Indice()->Completo()) pedido_ = {archivo, linea, fila};
    const int vista = tabla_->FilaActual();
    const auto* const clase = vista < 0 ? nullptr : modelo_->Clase(vista);
    const int campo = clase == nullptr || fila < 0 ? -1 : clase->BuscarFila(fila);
    if (campo >= 0) tabla_->IrA(lugar, modelo_->ColumnaDeCampo(campo));
}

void FormDatos::IrA(const LugarDeEntrada& lugar) {
    const int archivo = diseno_->ArchivoUnico() ? 0 : lugar.grupo;
    if (static_cast<std::size_t>(archivo) < archivos_.size()) IrA(archivo, lugar.linea, lugar.fila);
}

// ---- What is shown ----

void FormDatos::MostrarActual() {
    const int fila = tabla_->FilaActual();
    if (fila >= 0) {
        regla_->Mostrar(modelo_->Linea(fila), modelo_->Clase(fila), diseno_->PorTabuladores(), TramoActual());
        const std::string campo = CampoActual();
        const auto* const clase = controles_.Clases().Buscar(campo);
        clase_->Mostrar(campo, clase == nullptr ? ClaseDeCampo{} : *clase, ventana_.documento.ruta);
    } else if (!Archivo().Indice() || Archivo().Indice()->Lineas() == 0) {
        regla_->Mostrar({}, nullptr, false, {});
        clase_->Mostrar({}, {}, {});
    }
    MostrarEstado();
}

void FormDatos::MostrarEstado() {
    QStringList partes;
    if (cambiado_) {
        partes << Palabra(palabra::ElArchivoHaCambiado);
    } else if (const auto& fallo = Archivo().Fallo()) {
        partes << QString::fromStdString(EnPantalla(*fallo, Textos()));
    }
    if (Archivo().Indice()) {
        const auto lineas = Archivo().Indice()->Lineas();
        const QLocale numeros;
        if (lineas == 0) {
            partes << Palabra(palabra::ElArchivoEstaVacio);
        } else {
            partes << Palabra(palabra::LineaDeLineas)
                          .arg(numeros.toString(qulonglong{tabla_->Actual() + 1}), numeros.toString(qulonglong{lineas}));
        }
        if (!Archivo().Indice()->Completo()) partes << Palabra(palabra::Contando);
    }
    if (const int fila = tabla_->FilaActual(); fila >= 0) {
        const QString motivos = modelo_->Motivos(fila, tabla_->ColumnaActual());
        const QString deLinea = modelo_->Motivos(fila, -1);
        for (const auto& motivo : {motivos, deLinea}) {
            if (!motivo.isEmpty()) partes << QString(motivo).replace(QLatin1Char('\n'), QStringLiteral("; "));
        }
    }
    if (!controles_.Fallo().isEmpty()) partes << controles_.Fallo();
    const QString texto = partes.join(QStringLiteral(" - "));
    const QString corto = estadoDeLineas_->fontMetrics().elidedText(texto, Qt::ElideRight, estadoDeLineas_->width());
    if (estadoDeLineas_->text() == corto && estadoDeLineas_->toolTip() == texto) return;
    estadoDeLineas_->setText(corto);
    estadoDeLineas_->setToolTip(texto);
}

void FormDatos::Habilitar() {
    deshacer_->setEnabled(pasos_ > 0 && !ventana_.documento.deshacer.Vacia());
    guardarClases_->setEnabled(controles_.Cambiados());
    deCabecera_->setEnabled(Archivo().Indice() && archivo_ == 0);
    deMarcas_->setEnabled(!regla_->Marcas().Columnas().empty());
}

}  // namespace qor
