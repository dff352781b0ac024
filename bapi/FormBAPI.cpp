#include "bapi/FormBAPI.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QSplitter>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <utility>

#include "bapi/FormBAPIFields.h"
#include "bapi/update.h"
#include "base/busy_pointer.h"
#include "base/failure_trap.h"
#include "base/key_filters.h"
#include "base/qt/read_only_box.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/text.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr int numeroDeNodo = Qt::UserRole;

template <typename Widget>
Widget* ConNombre(Widget* widget, const char* nombre) {
    widget->setObjectName(QString::fromLatin1(nombre));
    return widget;
}

}  // namespace

FormBAPI::FormBAPI(Documento& documento, const TextosIdioma& textos, Vista& vista, EntornoDeBAPI entorno, QWidget* padre)
    : Dialogo(textos, "FormBAPI", padre), documento_(documento), vista_(vista), entorno_(std::move(entorno)) {
    setWindowTitle(Rotulo(176));
    CrearControles();
    MostrarNodo();
    ConfigurarActualizacionEnProgreso(false);
    PonerTamano(125, 40);
    TextoBuscar_->setFocus();
}

FormBAPI::~FormBAPI() = default;

void FormBAPI::CrearControles() {
    InformationText_ = NuevaExplicacion("InformationText", Rotulo(170) + '\n' + Rotulo(171));
    Arbol_ = ConNombre(new QTreeWidget(this), "Arbol");
    Arbol_->setHeaderHidden(true);
    Arbol_->setUniformRowHeights(true);
    Arbol_->setAccessibleName(windowTitle());
    TextoNodo_ = ConNombre(new CajaDeLectura(this), "TextoNodo");
    TextoNodo_->setAccessibleName(Rotulo(198));
    connect(Arbol_, &QTreeWidget::currentItemChanged, this, &FormBAPI::MostrarNodo);
    connect(Arbol_, &QTreeWidget::itemDoubleClicked, this, [this] { Aceptar(); });
    auto* const partes = new QSplitter(this);
    partes->setChildrenCollapsible(false);
    partes->addWidget(Arbol_);
    partes->addWidget(TextoNodo_);
    Arbol_->setMinimumWidth(AnchoDeLetras(56));
    partes->setStretchFactor(1, 1);

    OK_ = NuevoBoton("OK", Palabra(palabra::Aceptar));
    Cancel_ = NuevoBoton("Cancel", Rotulo(187));
    connect(OK_, &QPushButton::clicked, this, &FormBAPI::Aceptar);
    connect(Cancel_, &QPushButton::clicked, this, &QDialog::reject);

    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(InformationText_);
    orden->addLayout(CrearBusqueda());
    orden->addWidget(partes, 1);
    orden->addLayout(CrearCatalogo());
    orden->addLayout(CrearActualizacion());
    orden->addLayout(FilaDeBotones({OK_, Cancel_}));
}

QLayout* FormBAPI::CrearBusqueda() {
    TextoBuscar_ = ConNombre(new CajaDeLinea(this), "TextoBuscar");
    TextoBuscar_->setAccessibleName(SinLetra(Rotulo(188)));
    TextoBuscar_->PonerFiltro([](std::string_view texto) { return FiltrarTexto("TextoBuscar", texto); });
    TextoBuscar_->installEventFilter(this);
    Buscar_ = NuevoBoton("Buscar", Rotulo(188));
    SubCadenaOption_ = ConNombre(new QRadioButton(Rotulo(191), this), "SubCadenaOption");
    PalabrasOption_ = ConNombre(new QRadioButton(Rotulo(192), this), "PalabrasOption");
    SubCadenaOption_->setChecked(true);
    connect(TextoBuscar_, &QLineEdit::textChanged, this, &FormBAPI::NuevaBusqueda);
    connect(SubCadenaOption_, &QRadioButton::toggled, this, &FormBAPI::NuevaBusqueda);
    connect(Buscar_, &QPushButton::clicked, this, &FormBAPI::BuscarSiguiente);
    auto* const fila = new QHBoxLayout;
    fila->addWidget(TextoBuscar_, 1);
    fila->addWidget(SubCadenaOption_);
    fila->addWidget(PalabrasOption_);
    fila->addWidget(Buscar_);
    return fila;
}

QLayout* FormBAPI::CrearCatalogo() {
    FechaGeneracion_ = NuevoRotulo("FechaGeneracion", {});
    VersionSAP_ = NuevoRotulo("VersionSAP", {});
    ImprimirButton_ = NuevoBoton("ImprimirButton", Rotulo(174));
    connect(ImprimirButton_, &QPushButton::clicked, this, &FormBAPI::Imprimir);
    auto* const fila = new QHBoxLayout;
    fila->addWidget(NuevoRotulo("FechaGeneracionLabel", Rotulo(172)));
    fila->addWidget(FechaGeneracion_);
    fila->addSpacing(AnchoDeLetras(3));
    fila->addWidget(NuevoRotulo("VersionSAPLabel", Rotulo(173)));
    fila->addWidget(VersionSAP_);
    fila->addStretch();
    fila->addWidget(ImprimirButton_);
    return fila;
}

QLayout* FormBAPI::CrearActualizacion() {
    ButtonUpdate_ = NuevoBoton("ButtonUpdate", Rotulo(928));
    ButtonCancelUpdate_ = NuevoBoton("ButtonCancelUpdate", Rotulo(187));
    UpdateProgress_ = ConNombre(new QProgressBar(this), "UpdateProgress");
    UpdateProgress_->setRange(0, 100);
    UpdateProgress_->setTextVisible(false);
    LabelUpdate_ = NuevoRotulo("LabelUpdate", Rotulo(241));
    LabelUpdate_->setMinimumWidth(fontMetrics().horizontalAdvance(Rotulo(241) + QStringLiteral(" 100 %")));
    connect(ButtonUpdate_, &QPushButton::clicked, this, &FormBAPI::Actualizar);
    connect(ButtonCancelUpdate_, &QPushButton::clicked, this, &FormBAPI::Cancelar);
    auto* const fila = new QHBoxLayout;
    fila->addWidget(LabelUpdate_);
    fila->addWidget(UpdateProgress_, 1);
    fila->addWidget(ButtonUpdate_);
    fila->addWidget(ButtonCancelUpdate_);
    return fila;
}

void FormBAPI::showEvent(QShowEvent* evento) {
    Dialogo::showEvent(evento);
    if (!std::exchange(abierto_, true)) QTimer::singleShot(0, this, &FormBAPI::Abrir);
}

void FormBAPI::Abrir() {
    Recuperar();
    if (entorno_.sesion == nullptr) return;
    const auto aviso = AvisoDeVersion(Textos(), catalogo_.VersionSAP, entorno_.sesion->VersionSistema);
    if (aviso) vista_.Informar(*aviso);
}

bool FormBAPI::Recuperar() {
    auto leido = RecuperarDatosBAPIs(entorno_.ArchivoBAPI, Textos(), vista_);
    catalogo_ = leido.value_or(CatalogoBAPI{});
    busqueda_.emplace(catalogo_);
    nuevaBusqueda_ = true;
    FechaGeneracion_->setText(TextoQt(catalogo_.FechaGeneracion));
    VersionSAP_->setText(TextoQt(catalogo_.VersionSAP));
    LlenarArbol();
    return leido.has_value();
}

void FormBAPI::LlenarArbol() {
    Arbol_->clear();
    ramas_.clear();
    QList<QTreeWidgetItem*> raices;
    for (const auto& nodo : catalogo_.nodos) {
        auto* const rama = nodo.esBAPI && !raices.isEmpty() ? new QTreeWidgetItem(raices.back()) : new QTreeWidgetItem;
        if (rama->parent() == nullptr) raices << rama;
        rama->setText(0, TextoQt(nodo.texto));
        rama->setData(0, numeroDeNodo, QVariant::fromValue(ramas_.size()));
        ramas_.push_back(rama);
    }
    Arbol_->addTopLevelItems(raices);
    MostrarNodo();
}

const NodoBAPI* FormBAPI::NodoElegido() const {
    const auto* const rama = Arbol_->currentItem();
    if (rama == nullptr) return nullptr;
    const auto& nodo = catalogo_.nodos.at(rama->data(0, numeroDeNodo).value<std::size_t>());
    return nodo.esBAPI ? &nodo : nullptr;
}

void FormBAPI::MostrarNodo() {
    const auto* const nodo = NodoElegido();
    TextoNodo_->PonerTexto(nodo != nullptr ? QuitarMarcas(catalogo_.DescripcionesBAPI.at(nodo->numero)) : std::string());
    OK_->setEnabled(nodo != nullptr && !enProgreso_);
    ImprimirButton_->setEnabled(nodo != nullptr && !enProgreso_ && entorno_.imprimir);
}

void FormBAPI::NuevaBusqueda() {
    nuevaBusqueda_ = true;
    Buscar_->setText(Rotulo(188));
}

void FormBAPI::BuscarSiguiente() {
    const std::string texto = TextoBuscar_->Texto();
    if (EstaEnBlanco(texto) || !busqueda_) return;
    if (std::exchange(nuevaBusqueda_, false)) {
        busqueda_->Empezar(texto, SubCadenaOption_->isChecked() ? ModoDeBusqueda::SubCadena : ModoDeBusqueda::Palabras);
    }
    std::optional<std::size_t> hallado;
    {
        const ConPunteroOcupado puntero(vista_);
        hallado = busqueda_->Siguiente();
    }
    if (!hallado) {
        NuevaBusqueda();
        return vista_.Advertir(Componer(Textos(), {374}));
    }
    Buscar_->setText(Rotulo(189));
    Arbol_->setCurrentItem(ramas_.at(*hallado));
    Arbol_->scrollToItem(ramas_.at(*hallado));
}

void FormBAPI::Aceptar() {
    const auto* const nodo = NodoElegido();
    if (nodo == nullptr || enProgreso_) return;
    bool cerrar = true;
    ConTrampa(vista_, [&] {
        const auto resultado = ElegirBAPI(
            documento_, entorno_.ArchivoBAPI, std::string(Recortar(nodo->texto)), entorno_.SoloDefinicion, entorno_.FilaInsercion,
            [this] { return FormBAPIFields(Textos(), this).Preguntar(); }, Textos(), vista_);
        cerrar = resultado != ResultadoInsercion::Cancelado;
    });
    if (cerrar) accept();
}

void FormBAPI::Imprimir() {
    const auto* const nodo = NodoElegido();
    if (nodo == nullptr) return;
    ConTrampa(vista_, [&] { entorno_.imprimir(nodo->texto, QuitarMarcas(catalogo_.DescripcionesBAPI.at(nodo->numero)), this); });
}

void FormBAPI::Actualizar() {
    if (entorno_.sesion == nullptr) return vista_.Informar(InstruccionesDeActualizacion(Textos()));
    CancelarActualizacion_ = false;
    const PedidoDeActualizacion pedido{*entorno_.sesion,
                                       Textos(),
                                       vista_,
                                       entorno_.directorio,
                                       entorno_.ArchivoBAPI,
                                       [this](bool enProgreso) {
                                           vista_.PunteroOcupado(enProgreso);
                                           ConfigurarActualizacionEnProgreso(enProgreso);
                                           if (!enProgreso) ButtonUpdate_->setFocus();
                                       },
                                       [this](int porcentaje) {
                                           UpdateProgress_->setValue(porcentaje);
                                           LabelUpdate_->setText(Rotulo(241) + QStringLiteral(" %1 %").arg(porcentaje));
                                           QCoreApplication::processEvents();
                                           return !CancelarActualizacion_;
                                       }};
    ConTrampa(vista_, [&] {
        if (ActualizarCatalogo(pedido) == ResultadoActualizacion::Hecha && Recuperar()) {
            vista_.Informar(Componer(Textos(), {242}));
        }
    });
    if (enProgreso_) ConfigurarActualizacionEnProgreso(false);
}

void FormBAPI::Cancelar() {
    if (vista_.Preguntar(Componer(Textos(), {442}), Botones::SiNo) == Respuesta::Si) CancelarActualizacion_ = true;
}

void FormBAPI::ConfigurarActualizacionEnProgreso(bool enProgreso) {
    enProgreso_ = enProgreso;
    for (const char* const nombre :
         {"Cancel", "Buscar", "TextoBuscar", "ButtonUpdate", "SubCadenaOption", "PalabrasOption", "TextoNodo", "InformationText",
          "FechaGeneracionLabel", "FechaGeneracion", "VersionSAPLabel", "VersionSAP", "Arbol"}) {
        findChild<QWidget*>(QString::fromLatin1(nombre))->setEnabled(!enProgreso);
    }
    ButtonCancelUpdate_->setEnabled(enProgreso);
    UpdateProgress_->setEnabled(enProgreso);
    LabelUpdate_->setVisible(enProgreso);
    UpdateProgress_->setValue(0);
    MostrarNodo();
}

bool FormBAPI::PuedeCerrar() {
    if (enProgreso_) Cancelar();
    return !enProgreso_;
}

bool FormBAPI::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == TextoBuscar_ && evento->type() == QEvent::FocusIn) {
        Buscar_->setDefault(true);
        QTimer::singleShot(0, TextoBuscar_, &QLineEdit::selectAll);
    }
    return Dialogo::eventFilter(objeto, evento);
}

}  // namespace qor
