#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QToolButton>
#include <QWheelEvent>

#include "app/Principal.h"
#include "app/qt/theme_icon.h"
#include "base/qt/text.h"
#include "editor/cell_actions.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/find.h"
#include "editor/grids.h"
#include "editor/key_filters.h"
#include "editor/option_rules.h"
#include "editor/undo_command.h"

// The first page of the main form: the two grids, what edits them, and the source of the data.
namespace qor {

namespace {

constexpr const char* todosLosArchivos = "*.*|*";
constexpr const char* filtroDeProgramas = "ABAP|*.abap|*.*|*";

// Widths of the columns of the program grid in twips, as shares of the room there is.
constexpr int anchoDeText6 = 1900;
constexpr int anchoDeText3 = 1800;
constexpr int anchoDeText4 = 2300;
constexpr int anchoDeText5 = 2600;

// Height of the line above a grid, the same for both.
int AltoDeTitulo(const QWidget& control) { return control.fontMetrics().height() + 8; }

// A label in bold.
QLabel* EnNegrita(QLabel* rotulo) {
    QFont letra = rotulo->font();
    letra.setBold(true);
    rotulo->setFont(letra);
    return rotulo;
}

// A frame whose ground shows between the cells as the lines of a grid.
QFrame* NuevoMarco(QWidget* padre, const char* nombre) {
    auto* const marco = new QFrame(padre);
    marco->setObjectName(QString::fromLatin1(nombre));
    marco->setAutoFillBackground(true);
    marco->setBackgroundRole(QPalette::Mid);
    return marco;
}

QGridLayout* OrdenDeRejilla(QFrame* marco) {
    auto* const orden = new QGridLayout(marco);
    orden->setContentsMargins(1, 1, 1, 1);
    orden->setSpacing(1);
    return orden;
}

// A heading of a column: a label on the ground of buttons.
QLabel* ComoCabecera(QLabel* rotulo) {
    rotulo->setAutoFillBackground(true);
    rotulo->setBackgroundRole(QPalette::Button);
    rotulo->setForegroundRole(QPalette::ButtonText);
    rotulo->setMargin(3);
    rotulo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return rotulo;
}

QScrollBar* NuevaBarra(QWidget* padre, const char* nombre, int ultima, int lineas) {
    auto* const barra = new QScrollBar(Qt::Vertical, padre);
    barra->setObjectName(QString::fromLatin1(nombre));
    barra->setRange(0, ultima);
    barra->setPageStep(lineas);
    barra->setFocusPolicy(Qt::NoFocus);
    return barra;
}

}  // namespace

CeldaDeRejilla* Principal::CrearCelda(LugarDeCelda lugar, QWidget* padre) {
    auto* const celda = new CeldaDeRejilla(lugar, padre);
    controles_.insert(celda->objectName().toLatin1(), celda);
    celdas_.push_back(celda);
    celda->setMinimumWidth(celda->fontMetrics().averageCharWidth() * 3);
    celda->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    celda->setMaximumHeight(celda->sizeHint().height() * 3 / 2);
    celda->PonerFiltro([this, lugar](std::string_view texto) -> std::string {
        std::string pasado;
        Hacer([&] {
            if (texto.size() != 1) {
                pasado = FiltrarTextoDeCelda(editor_, lugar, texto);
                return;
            }
            const char tecla = FiltrarTeclaDeCelda(editor_, lugar, texto.front());
            if (tecla != teclaDescartada) pasado = tecla;
        });
        return pasado;
    });
    celda->PonerFiltroDeRetroceso([this, lugar] {
        bool admite = false;
        Hacer([&] { admite = FiltrarTeclaDeCelda(editor_, lugar, retroceso) != teclaDescartada; });
        return admite;
    });
    connect(celda, &CeldaDeRejilla::Entrada, this, [this, lugar] { Hacer([&] { EntrarEnCelda(editor_, lugar); }); });
    connect(celda, &CeldaDeRejilla::Salida, this, [this, lugar] { Hacer([&] { SalirDeCelda(editor_, lugar); }); });
    connect(celda, &CeldaDeRejilla::Escrita, this, [this, celda, lugar] {
        Hacer([&] {
            // A new document has taken the focus from the editor, and not from the control.
            EntrarEnCelda(editor_, lugar);
            CambiarCelda(editor_, lugar.columna, lugar.linea, celda->Texto());
        });
    });
    connect(celda, &CeldaDeRejilla::Pulsada, this,
            [this, lugar](Tecla tecla) { Hacer([&] { TeclaEnCelda(editor_, lugar, tecla); }); });
    connect(celda, &CeldaDeRejilla::PideDeshacer, this, [this] { Hacer([&] { Deshacer(editor_); }); });
    connect(celda, &CeldaDeRejilla::SoltadoCampo, this,
            [this, lugar](int linea) { Hacer([&] { SoltarCampo(editor_, lugar.linea, linea); }); });
    connect(celda, &CeldaDeRejilla::SoltadoOkCode, this,
            [this, lugar](RotuloDeOkCode rotulo) { Hacer([&] { SoltarOkCode(editor_, lugar.linea, rotulo); }); });
    connect(celda, &CeldaDeRejilla::DobleClic, this, [this, lugar] {
        Hacer([&] {
            if (const auto fila = DobleClicEnCelda(editor_, lugar)) ClicNotas(*fila);
        });
    });
    return celda;
}

QWidget* Principal::CrearRejillaArchivo(QWidget* padre) {
    auto* const panel = new QWidget(padre);
    auto* const titulo = EnNegrita(Nuevo<QLabel>("FileSpecification", panel));
    auto* const rotulo = Nuevo<QLabel>("LineaArchivoLabel", panel);
    auto* const linea = Nuevo<QLabel>("LineaArchivo", panel);
    linea->installEventFilter(this);

    marcoArchivo_ = NuevoMarco(panel, "RejillaArchivo");
    marcoArchivo_->installEventFilter(this);
    auto* const rejilla = OrdenDeRejilla(marcoArchivo_);
    rejilla->addWidget(ComoCabecera(Nuevo<QLabel>("ColumnName", marcoArchivo_)), 0, 0);
    rejilla->addWidget(ComoCabecera(Nuevo<QLabel>("FileWidth", marcoArchivo_)), 0, 1);
    rejilla->addWidget(ComoCabecera(new QLabel(marcoArchivo_)), 0, 2);
    for (int i = 0; i < lineasArchivo; ++i) {
        rejilla->addWidget(CrearCelda({Columna::Text1, i}, marcoArchivo_), i + 1, 0);
        rejilla->addWidget(CrearCelda({Columna::Text2, i}, marcoArchivo_), i + 1, 1);
        auto* const codigo = Nuevo<QToolButton>(("ABAP_" + std::to_string(i)).c_str(), marcoArchivo_);
        codigo->setFocusPolicy(Qt::NoFocus);
        codigo->setAutoRaise(true);
        codigo->setAutoFillBackground(true);
        codigo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
        connect(codigo, &QToolButton::clicked, this, [this, i] {
            Hacer([&] {
                if (const auto fila = ClicEnABAP(editor_, i)) ClicCodigo(*fila);
            });
        });
        ABAP_[static_cast<std::size_t>(i)] = codigo;
        rejilla->addWidget(codigo, i + 1, 2);
        rejilla->setRowStretch(i + 1, 1);
    }
    rejilla->setColumnStretch(0, 5);
    rejilla->setColumnStretch(1, 2);
    barraArchivo_ = NuevaBarra(panel, "BarraArchivo", ultimaPrimeraFilaArchivo, lineasArchivo);
    connect(barraArchivo_, &QScrollBar::valueChanged, this, [this](int primera) {
        if (!sincronizando_) Hacer([&] { DesplazarArchivo(editor_, primera - editor_.archivo.PrimeraFilaArchivo); });
    });

    auto* const orden = new QGridLayout(panel);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->setHorizontalSpacing(3);
    orden->addWidget(titulo, 0, 0);
    orden->setRowMinimumHeight(0, AltoDeTitulo(*panel));
    orden->addWidget(rotulo, 0, 1);
    orden->addWidget(linea, 0, 2, 1, 2);
    orden->addWidget(marcoArchivo_, 1, 0, 1, 3);
    orden->addWidget(barraArchivo_, 1, 3);
    orden->setColumnStretch(0, 1);
    orden->setRowStretch(1, 1);
    return panel;
}

QWidget* Principal::CrearRejillaTransaccion(QWidget* padre) {
    auto* const panel = new QWidget(padre);
    auto* const titulo = EnNegrita(Nuevo<QLabel>("TransactionSpecification", panel));
    auto* const expandir = NuevoBoton("ExpandirCampo", panel, [this] { ClicExpandirCampo(editor_); });
    expandir->setFixedWidth(expandir->fontMetrics().height() * 2);
    expandir->setFixedHeight(AltoDeTitulo(*expandir));
    auto* const rotulo = Nuevo<QLabel>("LineaTransaccionLabel", panel);
    auto* const linea = Nuevo<QLabel>("LineaTransaccion", panel);
    linea->installEventFilter(this);

    marcoTransaccion_ = NuevoMarco(panel, "RejillaTransaccion");
    marcoTransaccion_->installEventFilter(this);
    columnasTransaccion_ = OrdenDeRejilla(marcoTransaccion_);
    int columna = 0;
    for (const char* const cabecera : {"ProgramCol", "DynproCol", "FieldCol", "Col2Name"}) {
        columnasTransaccion_->addWidget(ComoCabecera(Nuevo<QLabel>(cabecera, marcoTransaccion_)), 0, columna++);
    }
    for (int i = 0; i < lineasTransaccion; ++i) {
        columna = 0;
        for (const Columna c : {Columna::Text6, Columna::Text3, Columna::Text4, Columna::Text5}) {
            columnasTransaccion_->addWidget(CrearCelda({c, i}, marcoTransaccion_), i + 1, columna++);
        }
        columnasTransaccion_->setRowStretch(i + 1, 1);
    }
    barraTransaccion_ = NuevaBarra(panel, "BarraTransaccion", ultimaPrimeraFilaTransaccion, lineasTransaccion);
    connect(barraTransaccion_, &QScrollBar::valueChanged, this, [this](int primera) {
        if (!sincronizando_) Hacer([&] { DesplazarTransaccion(editor_, primera - editor_.transaccion.PrimeraFilaTransaccion); });
    });

    auto* const orden = new QGridLayout(panel);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->setHorizontalSpacing(3);
    orden->addWidget(titulo, 0, 0);
    orden->addWidget(expandir, 0, 1);
    orden->addWidget(rotulo, 0, 2);
    orden->addWidget(linea, 0, 3, 1, 2);
    orden->addWidget(marcoTransaccion_, 1, 0, 1, 4);
    orden->addWidget(barraTransaccion_, 1, 4);
    orden->setColumnStretch(0, 1);
    orden->setRowStretch(1, 1);
    return panel;
}

QWidget* Principal::CrearEdicion(QWidget* padre) {
    auto* const grupo = Nuevo<QGroupBox>("FrameEdicion", padre);
    auto* const arrastre = Nuevo<QLabel>("ArrastreLabel", grupo);
    auto* const codigos = new QHBoxLayout;
    codigos->addWidget(arrastre);
    constexpr std::array<const char*, 4> nombres = {"EnterCode", "SaveCode", "F5Code", "CreateCode"};
    for (std::size_t i = 0; i < nombres.size(); ++i) {
        codigos->addWidget(Nuevo<RotuloDeArrastre>(nombres[i], static_cast<RotuloDeOkCode>(i), grupo));
    }
    codigos->addStretch();
    codigos->addWidget(Casilla("Autofill", grupo, &Opciones::Autofill));
    auto* const agregar = NuevoBoton("ButtonAddOperation", grupo, [this] { ClicAgregarOperacion(); });
    agregar->setIcon(IconoDeTema("operation"));
    auto* const condiciones = NuevoBoton("Conditions", grupo, [this] { ClicCondiciones(); });
    condiciones->setIcon(IconoDeTema("conditions"));

    auto* const buscado = CajaFiltrada("TextoBuscado", grupo);
    buscado->setClearButtonEnabled(true);
    connect(buscado, &QLineEdit::textChanged, this, [this, buscado] {
        if (!sincronizando_) Hacer([&] { CambiarTextoBuscado(editor_, buscado->Texto()); });
    });
    connect(buscado, &QLineEdit::returnPressed, this, [this] { RepetirBusqueda(); });
    sincronias_.emplace_back([this, buscado] { buscado->PonerTexto(editor_.busquedas.TextoBuscado); });
    auto* const enArchivo = NuevoBoton("BuscarArchivo", grupo, [this] {
        ultimaBusquedaEnArchivo_ = true;
        BuscarArchivo(editor_);
    });
    auto* const enTransaccion = NuevoBoton("BuscarTransaccion", grupo, [this] {
        ultimaBusquedaEnArchivo_ = false;
        BuscarTransaccion(editor_);
    });
    sincronias_.emplace_back([this, enArchivo, enTransaccion] {
        enArchivo->setText(TextoQt(programa_.textos.Texto(RotuloDeBuscarArchivo(editor_))));
        enTransaccion->setText(TextoQt(programa_.textos.Texto(RotuloDeBuscarTransaccion(editor_))));
    });

    auto* const orden = new QGridLayout(grupo);
    orden->addLayout(codigos, 0, 0, 1, 2);
    orden->addWidget(agregar, 0, 2);
    orden->addWidget(condiciones, 0, 3);
    orden->addWidget(buscado, 1, 0, 1, 2);
    orden->addWidget(enArchivo, 1, 2);
    orden->addWidget(enTransaccion, 1, 3);
    orden->setColumnStretch(1, 1);
    return grupo;
}

QWidget* Principal::CrearOrigen(QWidget* padre) {
    auto* const panel = new QWidget(padre);
    auto* const grupo = Nuevo<QGroupBox>("SourceField", panel);
    const auto lugar = Par("ClienteOp", "ServidorOp", grupo, &Opciones::ClienteOp);
    auto* const tabla = Casilla("TablaCh", grupo, &Opciones::TablaCh);
    const auto formato = Par("AnchoFijo", "DelimTab", grupo, &Opciones::AnchoFijo);
    auto* const parametro = Casilla("FileParameterCh", grupo, &Opciones::FileParameterCh);
    auto* const ayuda = Casilla("AddF4", grupo, &Opciones::AddF4);
    auto* const nombre = Nuevo<QLabel>("SourceName", grupo);
    sincronias_.emplace_back(
        [this, nombre] { nombre->setText(TextoQt(programa_.textos.Texto(RotuloDeSourceName(editor_.opciones)))); });
    auto* const archivo = Linea("ArchivoFuente", grupo, &Opciones::ArchivoFuente);
    nombre->setBuddy(archivo);
    auto* const examinar = NuevoBoton("ExaminarFuente", grupo, [this] {
        const auto ruta = vista_->ElegirParaAbrir(editor_.DirectorioDocumentos, todosLosArchivos);
        if (ruta) CambiarOpcion(editor_, &Opciones::ArchivoFuente, *ruta);
    });
    auto* const otro = NuevoBoton("OtherSource", panel, [this] { ClicOrigen(); });

    auto* const opciones = new QGridLayout(grupo);
    opciones->addWidget(lugar[0], 0, 0);
    opciones->addWidget(lugar[1], 1, 0);
    opciones->addWidget(tabla, 1, 1);
    opciones->addWidget(formato[0], 0, 2);
    opciones->addWidget(formato[1], 1, 2);
    opciones->addWidget(parametro, 0, 3);
    opciones->addWidget(ayuda, 1, 3);
    opciones->addWidget(nombre, 2, 0);
    auto* const caja = new QHBoxLayout;
    caja->setSpacing(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    caja->addWidget(archivo, 1);
    caja->addWidget(examinar);
    opciones->addLayout(caja, 2, 1, 1, 3);
    opciones->setColumnStretch(3, 1);
    opciones->setHorizontalSpacing(fontMetrics().averageCharWidth() * 3);

    auto* const propio = Nuevo<QLabel>("Otro1", panel);
    auto* const explicacion = Nuevo<QLabel>("Otro2", panel);
    EnNegrita(propio);
    sincronias_.emplace_back([this, explicacion] { explicacion->setVisible(editor_.especificacion.OrigenUsuario); });
    auto* const propios = new QVBoxLayout;
    propios->addWidget(propio);
    propios->addWidget(explicacion);
    auto* const orden = new QHBoxLayout(panel);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->addWidget(grupo, 1);
    orden->addLayout(propios);
    orden->addStretch();
    orden->addWidget(otro, 0, Qt::AlignBottom);
    return panel;
}

QWidget* Principal::CrearPaginaDeRejillas() {
    auto* const pagina = new QWidget;
    auto* const derecha = new QVBoxLayout;
    auto* const archivo = CrearRejillaArchivo(pagina);
    derecha->addWidget(CrearRejillaTransaccion(pagina), 1);
    derecha->addWidget(CrearEdicion(pagina));
    auto* const rejillas = new QHBoxLayout;
    rejillas->setSpacing(12);
    rejillas->addWidget(archivo, 4);
    rejillas->addLayout(derecha, 9);
    auto* const orden = new QVBoxLayout(pagina);
    orden->addLayout(rejillas, 1);
    orden->addWidget(CrearOrigen(pagina));
    return pagina;
}

// The row below the tabs: the program file, and the button that writes it.
QWidget* Principal::CrearSalida(QWidget* padre) {
    auto* const panel = new QWidget(padre);
    auto* const rotulo = Nuevo<QLabel>("GenerateProgram", panel);
    auto* const programa = Linea("Programa", panel, &Opciones::Programa);
    rotulo->setBuddy(programa);
    auto* const examinar = NuevoBoton("ExaminarPrograma", panel, [this] {
        if (const auto ruta = vista_->ElegirParaGrabar(filtroDeProgramas)) CambiarOpcion(editor_, &Opciones::Programa, *ruta);
    });
    auto* const generar = NuevoBoton("Generar", panel, [this] { ClicGenerar(); });
    generar->setIcon(IconoDeTema("generate"));
    auto* const orden = new QHBoxLayout(panel);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->addWidget(rotulo);
    orden->addWidget(programa, 1);
    orden->addWidget(examinar);
    orden->addSpacing(12);
    orden->addWidget(generar);
    return panel;
}

// ---- State and events ----

void Principal::SincronizarRejillas() {
    for (auto* const celda : celdas_) celda->Sincronizar(CeldaDe(editor_, celda->Lugar()));
    for (std::size_t i = 0; i < ABAP_.size(); ++i) {
        const Color color = editor_.archivo.ABAP[i].color;
        QPalette paleta = ABAP_[i]->palette();
        const QColor nuevo = color == Color::Rojo ? ColorDeTexto(color, palette()) : palette().color(QPalette::ButtonText);
        if (paleta.color(QPalette::ButtonText) == nuevo) continue;
        paleta.setColor(QPalette::ButtonText, nuevo);
        ABAP_[i]->setPalette(paleta);
        QFont letra = ABAP_[i]->font();
        letra.setBold(color == Color::Rojo);
        ABAP_[i]->setFont(letra);
    }
    qobject_cast<QLabel*>(controles_.value("LineaArchivo"))->setText(QString::number(editor_.archivo.LineaArchivo));
    qobject_cast<QLabel*>(controles_.value("LineaTransaccion"))->setText(QString::number(editor_.transaccion.LineaTransaccion));
    barraArchivo_->setValue(editor_.archivo.PrimeraFilaArchivo);
    barraTransaccion_->setValue(editor_.transaccion.PrimeraFilaTransaccion);
    if (expandido_ != static_cast<int>(editor_.ventana.ExpandirCampo)) RepartirColumnas();
}

void Principal::RepartirColumnas() {
    const bool expandido = editor_.ventana.ExpandirCampo;
    expandido_ = static_cast<int>(expandido);
    columnasTransaccion_->setColumnStretch(0, anchoDeText6 + (expandido ? expansionDeText6 : 0));
    columnasTransaccion_->setColumnStretch(1, anchoDeText3 + (expandido ? expansionDeText3 : 0));
    columnasTransaccion_->setColumnStretch(2, anchoDeText4 + (expandido ? expansionDeText4 : 0));
    columnasTransaccion_->setColumnStretch(3, anchoDeText5);
    qobject_cast<QPushButton*>(controles_.value("ExpandirCampo"))->setText(QString::fromLatin1(RotuloDeExpandirCampo(editor_)));
}

void Principal::RepetirBusqueda() {
    Hacer([this] { ultimaBusquedaEnArchivo_ ? BuscarArchivo(editor_) : BuscarTransaccion(editor_); });
}

bool Principal::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::Wheel && (objeto == marcoArchivo_ || objeto == marcoTransaccion_)) {
        // A step of the wheel is 120; finer wheels send parts of it.
        constexpr int pasoDeRueda = 120;
        constexpr int filasPorPaso = 3;
        restoDeRueda_ += static_cast<QWheelEvent*>(evento)->angleDelta().y() * filasPorPaso;
        const int filas = -restoDeRueda_ / pasoDeRueda;
        restoDeRueda_ %= pasoDeRueda;
        if (filas != 0) {
            Hacer([&] { objeto == marcoArchivo_ ? DesplazarArchivo(editor_, filas) : DesplazarTransaccion(editor_, filas); });
        }
        return true;
    }
    if (evento->type() == QEvent::MouseButtonDblClick && objeto == controles_.value("LineaArchivo")) {
        Hacer([this] { DobleClicLineaArchivo(editor_); });
        return true;
    }
    if (evento->type() == QEvent::MouseButtonDblClick && objeto == controles_.value("LineaTransaccion")) {
        Hacer([this] { DobleClicLineaTransaccion(editor_); });
        return true;
    }
    return QMainWindow::eventFilter(objeto, evento);
}

}  // namespace qor
