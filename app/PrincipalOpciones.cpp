#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "app/Principal.h"
#include "base/qt/text.h"
#include "editor/key_filters.h"
#include "editor/option_rules.h"

// The second page of the main form: the options of the specification, and the user's own.
namespace qor {

namespace {

// The room of a control stays when it is hidden.
template <typename T>
T* ConSuLugar(T* control) {
    QSizePolicy politica = control->sizePolicy();
    politica.setRetainSizeWhenHidden(true);
    control->setSizePolicy(politica);
    return control;
}

QLabel* EnVariasLineas(QLabel* rotulo) {
    rotulo->setWordWrap(true);
    rotulo->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    return rotulo;
}

// Two columns of boxes, each as high as it needs to be.
QWidget* EnDosColumnas(std::initializer_list<QWidget*> izquierda, std::initializer_list<QWidget*> derecha, QWidget* pagina) {
    auto* const orden = new QHBoxLayout(pagina);
    for (const auto& columna : {izquierda, derecha}) {
        auto* const vertical = new QVBoxLayout;
        for (auto* const caja : columna) vertical->addWidget(caja);
        vertical->addStretch();
        orden->addLayout(vertical, 1);
    }
    return pagina;
}

}  // namespace

// ---- Controls tied to an option ----

QCheckBox* Principal::Casilla(const char* nombre, QWidget* padre, int Opciones::*opcion) {
    auto* const casilla = Nuevo<QCheckBox>(nombre, padre);
    connect(casilla, &QCheckBox::toggled, this, [this, opcion](bool puesta) {
        if (!sincronizando_) Hacer([&] { CambiarOpcion(editor_, opcion, puesta ? 1 : 0); });
    });
    sincronias_.emplace_back([this, casilla, opcion] { casilla->setChecked(editor_.opciones.*opcion == 1); });
    return casilla;
}

std::array<QRadioButton*, 2> Principal::Par(const char* primero, const char* segundo, QWidget* padre, bool Opciones::*opcion) {
    auto* const si = Nuevo<QRadioButton>(primero, padre);
    auto* const no = Nuevo<QRadioButton>(segundo, padre);
    auto* const grupo = new QButtonGroup(this);
    grupo->addButton(si);
    grupo->addButton(no);
    connect(si, &QRadioButton::toggled, this, [this, opcion](bool puesto) {
        if (!sincronizando_) Hacer([&] { CambiarOpcion(editor_, opcion, puesto); });
    });
    sincronias_.emplace_back([this, si, no, opcion] { (editor_.opciones.*opcion ? si : no)->setChecked(true); });
    return {si, no};
}

CajaDeLinea* Principal::CajaFiltrada(const char* nombre, QWidget* padre) {
    auto* const caja = Nuevo<CajaDeLinea>(nombre, padre);
    caja->PonerFiltro([control = std::string(nombre)](std::string_view texto) { return FiltrarTexto(control, texto); });
    return caja;
}

CajaDeLinea* Principal::Linea(const char* nombre, QWidget* padre, std::string Opciones::*opcion,
                              void (*cambiar)(Editor&, const std::string&)) {
    auto* const caja = CajaFiltrada(nombre, padre);
    connect(caja, &QLineEdit::textChanged, this, [this, caja, opcion, cambiar] {
        if (sincronizando_) return;
        Hacer([&] {
            if (cambiar != nullptr) return cambiar(editor_, caja->Texto());
            CambiarOpcion(editor_, opcion, caja->Texto());
        });
    });
    sincronias_.emplace_back([this, caja, opcion] { caja->PonerTexto(editor_.opciones.*opcion); });
    return caja;
}

CajaDeTexto* Principal::Texto(const char* nombre, QWidget* padre, std::string Opciones::*opcion) {
    auto* const caja = Nuevo<CajaDeTexto>(nombre, padre);
    connect(caja, &QPlainTextEdit::textChanged, this, [this, caja, opcion] {
        if (!sincronizando_) Hacer([&] { CambiarOpcion(editor_, opcion, caja->Texto()); });
    });
    sincronias_.emplace_back([this, caja, opcion] {
        if (caja->Texto() != editor_.opciones.*opcion) caja->PonerTexto(editor_.opciones.*opcion);
    });
    return caja;
}

QComboBox* Principal::Combo(const char* nombre, QWidget* padre, std::string Opciones::*opcion) {
    auto* const combo = Nuevo<QComboBox>(nombre, padre);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    auto* const caja = new CajaDeLinea(combo);
    combo->setLineEdit(caja);
    connect(combo, &QComboBox::currentTextChanged, this, [this, caja, opcion] {
        if (!sincronizando_) Hacer([&] { CambiarOpcion(editor_, opcion, caja->Texto()); });
    });
    sincronias_.emplace_back([this, caja, opcion] { caja->PonerTexto(editor_.opciones.*opcion); });
    return combo;
}

QCheckBox* Principal::CasillaDeAjuste(const char* nombre, QWidget* padre, const std::function<bool()>& leer,
                                      const std::function<void(bool)>& cambiar) {
    auto* const casilla = Nuevo<QCheckBox>(nombre, padre);
    connect(casilla, &QCheckBox::toggled, this, [this, cambiar](bool puesta) {
        if (!sincronizando_) Hacer([&] { cambiar(puesta); });
    });
    sincronias_.emplace_back([casilla, leer] { casilla->setChecked(leer()); });
    return casilla;
}

// ---- Error handling and titles ----

QWidget* Principal::CrearContabilizacion(QWidget* padre) {
    auto* const grupo = Nuevo<QGroupBox>("FrameContabilizacion", padre);
    auto* const modo = ConSuLugar(Nuevo<QGroupBox>("CTFrame", grupo));
    auto* const letras = new QButtonGroup(this);
    auto* const deModo = new QVBoxLayout(modo);
    for (const auto& [nombre, letra] : {std::pair{"AOption", 'A'}, std::pair{"NOption", 'N'}, std::pair{"EOption", 'E'}}) {
        auto* const opcion = Nuevo<QRadioButton>(nombre, modo);
        letras->addButton(opcion);
        deModo->addWidget(opcion);
        connect(opcion, &QRadioButton::toggled, this, [this, letra = letra](bool puesta) {
            if (puesta && !sincronizando_) Hacer([&] { CambiarOpcion(editor_, &Opciones::Modo, letra); });
        });
        sincronias_.emplace_back([this, opcion, letra = letra] {
            if (editor_.opciones.Modo == letra) opcion->setChecked(true);
        });
    }
    deModo->addWidget(Casilla("ModeAsParameter", modo, &Opciones::ModeAsParameter));

    auto* const orden = new QVBoxLayout(grupo);
    orden->addWidget(Casilla("CallTransaction", grupo, &Opciones::CallTransaction));
    orden->addWidget(modo);
    orden->addWidget(Casilla("SafeCallTransactionCheck", grupo, &Opciones::SafeCallTransactionCheck));
    orden->addWidget(Casilla("CommitCheck", grupo, &Opciones::CommitCheck));
    return grupo;
}

QWidget* Principal::CrearManejoDeErrores(QWidget* padre) {
    auto* const grupo = Nuevo<QGroupBox>("FrameErrores", padre);
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(Casilla("ErrorHandlingCheck", grupo, &Opciones::ErrorHandlingCheck), 0, 0, 1, 2);
    orden->addWidget(ConSuLugar(EnVariasLineas(Nuevo<QLabel>("ErroresExplicacion", grupo))), 1, 0, 1, 2);
    auto* const rotuloTabla = ConSuLugar(Nuevo<QLabel>("TablaZLabel", grupo));
    auto* const rotuloNumero = ConSuLugar(Nuevo<QLabel>("ProgIDLabel", grupo));
    auto* const tabla = ConSuLugar(Linea("TablaZ", grupo, &Opciones::TablaZ));
    auto* const numero = ConSuLugar(Linea("ProgID", grupo, &Opciones::ProgID, CambiarProgID));
    rotuloTabla->setBuddy(tabla);
    rotuloNumero->setBuddy(numero);
    orden->addWidget(rotuloTabla, 2, 0);
    orden->addWidget(tabla, 2, 1);
    orden->addWidget(rotuloNumero, 3, 0);
    orden->addWidget(numero, 3, 1);
    orden->setColumnStretch(1, 1);
    return grupo;
}

QWidget* Principal::CrearTitulos(QWidget* padre) {
    auto* const grupo = Nuevo<QGroupBox>("TitulosFrame", padre);
    auto* const orden = new QVBoxLayout(grupo);
    orden->addWidget(Casilla("DiaCheck", grupo, &Opciones::DiaCheck));
    orden->addWidget(Casilla("QORCheck", grupo, &Opciones::QORCheck));
    orden->addWidget(Casilla("ArchivosCheck", grupo, &Opciones::ArchivosCheck));
    orden->addWidget(Casilla("TCodeCheck", grupo, &Opciones::TCodeCheck));
    orden->addWidget(Casilla("StatusCheck", grupo, &Opciones::StatusCheck));
    return grupo;
}

QWidget* Principal::CrearJuegoDeDatos(QWidget* padre) {
    auto* const grupo = Nuevo<QGroupBox>("BDCFrame", padre);
    const auto nombre = Par("GeneracionAutomatica", "GeneracionManual", grupo, &Opciones::GeneracionAutomatica);
    auto* const manual = Linea("NombreManual", grupo, &Opciones::NombreManual, CambiarNombreManual);
    auto* const campos = Nuevo<QLabel>("CamposLabel", grupo);
    const auto proceso = Par("ProcesarTodoOpt", "ProcesarParteOpt", grupo, &Opciones::ProcesarTodoOpt);
    auto* const rotuloBlanco = Nuevo<QLabel>("SpaceCodeLabel", grupo);
    auto* const blanco = Linea("SpaceCode", grupo, &Opciones::SpaceCode);
    rotuloBlanco->setBuddy(blanco);
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(nombre[0], 0, 0, 1, 2);
    orden->addWidget(nombre[1], 1, 0);
    orden->addWidget(manual, 1, 1);
    orden->setRowMinimumHeight(2, fontMetrics().height() / 2);
    orden->addWidget(campos, 3, 0, 1, 2);
    orden->addWidget(proceso[0], 4, 0, 1, 2);
    orden->addWidget(proceso[1], 5, 0, 1, 2);
    orden->addWidget(rotuloBlanco, 6, 0);
    orden->addWidget(blanco, 6, 1);
    orden->addWidget(EnVariasLineas(Nuevo<QLabel>("Atencion", grupo)), 7, 0, 1, 2);
    orden->setColumnStretch(1, 1);
    return grupo;
}

QWidget* Principal::CrearOpcionesDeErrores() {
    auto* const pagina = new QWidget;
    auto* const contabilizacion = CrearContabilizacion(pagina);
    auto* const errores = CrearManejoDeErrores(pagina);
    auto* const titulos = CrearTitulos(pagina);
    return EnDosColumnas({contabilizacion, errores}, {titulos, CrearJuegoDeDatos(pagina)}, pagina);
}

// ---- Input and upload ----

void Principal::CrearEncoding(QWidget* padre, QGridLayout* orden) {
    auto* const grupo = new QButtonGroup(this);
    auto* const propia = CajaFiltrada("EncodingAdditional", padre);
    const auto elegir = [this, propia](OpcionEncoding opcion) {
        encoding_ = opcion;
        programa_.ajustes.preferencias.AdicionesDataset = AdicionesDeEncoding(opcion, propia->Texto());
    };
    int fila = 0;
    for (const auto& [nombre, opcion] :
         {std::pair{"OptionEncodingNone", OpcionEncoding::Ninguna}, std::pair{"OptionEncodingDefault", OpcionEncoding::Default},
          std::pair{"OptionEncodingNonUnicode", OpcionEncoding::NonUnicode},
          std::pair{"OptionEncodingAdditional", OpcionEncoding::Additional}}) {
        auto* const boton = Nuevo<QRadioButton>(nombre, padre);
        grupo->addButton(boton);
        orden->addWidget(boton, fila++, 0);
        connect(boton, &QRadioButton::toggled, this, [this, elegir, opcion = opcion](bool puesto) {
            if (puesto && !sincronizando_) Hacer([&] { elegir(opcion); });
        });
        sincronias_.emplace_back([this, boton, opcion = opcion] {
            if (encoding_ == opcion) boton->setChecked(true);
        });
    }
    orden->addWidget(propia, fila - 1, 1);
    orden->setColumnStretch(1, 1);
    if (encoding_ == OpcionEncoding::Additional) propia->PonerTexto(programa_.ajustes.preferencias.AdicionesDataset);
    connect(propia, &QLineEdit::textChanged, this, [this, elegir] {
        if (!sincronizando_) Hacer([&] { elegir(OpcionEncoding::Additional); });
    });
    // A logon can choose another addition.
    sincronias_.insert(sincronias_.begin(), [this, propia] {
        const std::string& adicion = programa_.ajustes.preferencias.AdicionesDataset;
        if (adicion != AdicionesDeEncoding(encoding_, propia->Texto())) encoding_ = EncodingDeAdiciones(adicion);
    });
}

QWidget* Principal::CrearOpcionesDeEntrada() {
    auto* const pagina = new QWidget;
    auto* const entrada = Nuevo<QGroupBox>("InputFrame", pagina);
    const auto archivos = Par("MultipleFilesOption", "OneFileOption", entrada, &Opciones::MultipleFilesOption);
    auto* const rotulo = Nuevo<QLabel>("IdentificadoresLabel", entrada);
    auto* const identificadores = Linea("Identificadores", entrada, &Opciones::Identificadores);
    rotulo->setBuddy(identificadores);
    auto* const deEntrada = new QGridLayout(entrada);
    deEntrada->addWidget(archivos[0], 0, 0, 1, 2);
    deEntrada->addWidget(archivos[1], 1, 0, 1, 2);
    deEntrada->addWidget(rotulo, 2, 0);
    deEntrada->addWidget(identificadores, 2, 1);
    deEntrada->addWidget(EnVariasLineas(Nuevo<QLabel>("IdentificadoresExplicacion", entrada)), 3, 0, 1, 2);
    deEntrada->setColumnStretch(1, 1);

    auto* const cliente = Nuevo<QGroupBox>("FrameClientSide", pagina);
    auto* const ws = Nuevo<QRadioButton>("OptionWS_UPLOAD", cliente);
    auto* const gui = Nuevo<QRadioButton>("OptionGUI_UPLOAD", cliente);
    auto* const deCliente = new QVBoxLayout(cliente);
    deCliente->addWidget(ws);
    deCliente->addWidget(gui);
    Preferencias& preferencias = programa_.ajustes.preferencias;
    connect(ws, &QRadioButton::toggled, this, [this, &preferencias](bool puesto) {
        if (!sincronizando_) Hacer([&] { preferencias.OptionWS_UPLOAD = puesto; });
    });
    sincronias_.emplace_back([ws, gui, &preferencias] { (preferencias.OptionWS_UPLOAD ? ws : gui)->setChecked(true); });

    auto* const servidor = Nuevo<QGroupBox>("FrameServerSide", pagina);
    auto* const deServidor = new QGridLayout(servidor);
    CrearEncoding(servidor, deServidor);
    return EnDosColumnas({entrada}, {cliente, servidor}, pagina);
}

// ---- Naming ----

QWidget* Principal::CrearOpcionesDeNombres() {
    auto* const pagina = new QWidget;
    auto* const grupo = Nuevo<QGroupBox>("FrameNamingConventions", pagina);
    Preferencias& preferencias = programa_.ajustes.preferencias;
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(CasillaDeAjuste(
                         "CheckActivateNamingConventions", grupo, [&] { return preferencias.CheckActivateNamingConventions == 1; },
                         [&](bool puesta) { preferencias.CheckActivateNamingConventions = puesta ? 1 : 0; }),
                     0, 0, 1, 4);
    orden->addWidget(ConSuLugar(Nuevo<QLabel>("LabelNamingConventions", grupo)), 1, 0, 1, 4);
    struct Prefijo {
        const char* rotulo;
        const char* caja;
        std::string Preferencias::*valor;
    };
    const Prefijo prefijos[] = {
        {"LabelGSprefix", "GSprefijo", &Preferencias::GSprefijo}, {"LabelGNprefix", "GNprefijo", &Preferencias::GNprefijo},
        {"LabelGTprefix", "GTprefijo", &Preferencias::GTprefijo}, {"LabelLSprefix", "LSprefijo", &Preferencias::LSprefijo},
        {"LabelLNprefix", "LNprefijo", &Preferencias::LNprefijo}, {"LabelLTprefix", "LTprefijo", &Preferencias::LTprefijo},
        {"LabelGCprefix", "GCprefijo", &Preferencias::GCprefijo}, {"LabelPSprefix", "PSprefijo", &Preferencias::PSprefijo},
        {"LabelPNprefix", "PNprefijo", &Preferencias::PNprefijo},
    };
    int fila = 2;
    for (const auto& prefijo : prefijos) {
        auto* const rotulo = ConSuLugar(Nuevo<QLabel>(prefijo.rotulo, grupo));
        auto* const caja = ConSuLugar(CajaFiltrada(prefijo.caja, grupo));
        rotulo->setBuddy(caja);
        orden->addWidget(rotulo, fila, 0);
        orden->addWidget(caja, fila++, 1);
        connect(caja, &QLineEdit::textChanged, this, [this, caja, &preferencias, valor = prefijo.valor] {
            if (!sincronizando_) Hacer([&] { preferencias.*valor = caja->Texto(); });
        });
        sincronias_.emplace_back([caja, &preferencias, valor = prefijo.valor] { caja->PonerTexto(preferencias.*valor); });
    }
    orden->setColumnMinimumWidth(1, fontMetrics().averageCharWidth() * 16);
    orden->setColumnStretch(3, 1);
    auto* const vertical = new QVBoxLayout(pagina);
    vertical->addWidget(grupo);
    vertical->addStretch();
    return pagina;
}

QWidget* Principal::CrearPaginaDeOpciones() {
    SSTab2_ = Nuevo<QTabWidget>("SSTab2");
    SSTab2_->addTab(CrearOpcionesDeErrores(), {});
    SSTab2_->addTab(CrearOpcionesDeEntrada(), {});
    SSTab2_->addTab(CrearOpcionesDeNombres(), {});
    auto* const pagina = new QWidget;
    auto* const orden = new QVBoxLayout(pagina);
    orden->addWidget(SSTab2_);
    return pagina;
}

}  // namespace qor
