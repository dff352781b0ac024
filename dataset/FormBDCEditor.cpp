#include "dataset/FormBDCEditor.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/busy_pointer.h"
#include "base/failure.h"
#include "base/paths.h"
#include "base/qt/lists.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/text.h"
#include "base/words.h"
#include "dataset/qt/line_view.h"

namespace qor {

namespace {

constexpr int paginaDeAyuda = 723;
constexpr int rotuloDeManual = 205;
constexpr int rotuloDeCondiciones = 206;
constexpr int pasosDeProgreso = 1000;
constexpr int letrasDeLista = 20;

std::string EnMayusculas(std::string_view texto) { return Mayusculas(texto); }

template <typename Widget>
Widget* ConNombre(Widget* widget, const QString& nombre) {
    widget->setObjectName(nombre);
    return widget;
}

QComboBox* NuevaLista(QWidget* padre, const QString& nombre) {
    auto* const lista = ConNombre(new QComboBox(padre), nombre);
    lista->setMinimumContentsLength(letrasDeLista);
    lista->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return lista;
}

CajaDeLinea* NuevaCajaEnMayusculas(QWidget* padre, const QString& nombre) {
    auto* const caja = ConNombre(new CajaDeLinea(padre), nombre);
    caja->PonerFiltro(EnMayusculas);
    return caja;
}

std::string TextoDe(const QComboBox& lista) { return TextoDelModelo(lista.currentText()); }

}  // namespace

FormBDCEditor::FormBDCEditor(const TextosIdioma& textos, Vista& vista, const AbrirAyuda& ayuda, QWidget* padre)
    : Dialogo(textos, "FormBDCEditor", padre), vista_(vista) {
    setWindowTitle(QStringLiteral("QOR End-User"));
    auto* const orden = new QVBoxLayout(this);
    orden->addLayout(CrearArchivo());
    CrearSeleccion();
    CrearReemplazo();
    CrearManual();
    orden->addWidget(FrameSeleccionar_);
    orden->addWidget(FrameReemplazar_);
    orden->addWidget(FrameManual_, 1);
    orden->addStretch();
    orden->addLayout(CrearEjecucion());
    Ayuda_ = NuevaAyuda("Ayuda", Rotulo(132), ayuda, paginaDeAyuda);
    EdicionButton_ = NuevoBoton("EdicionButton", Rotulo(rotuloDeManual));
    OK_ = NuevoBoton("OK", Palabra(palabra::Aceptar));
    connect(EdicionButton_, &QPushButton::clicked, this, [this] {
        if (vista_.Preguntar(Componer(Textos(), {406}), Botones::SiNo) != Respuesta::Si) return CambiarVista();
        if (!vista_.AbrirEditor(RutaArchivo_)) vista_.Advertir(SobreArchivo(Componer(Textos(), {325}), RutaArchivo_));
    });
    connect(OK_, &QPushButton::clicked, this, &QDialog::accept);
    orden->addLayout(FilaDeBotones({Ayuda_, EdicionButton_, OK_}, 2));
    ResetearValores();
    SetearCampos(false);
    FrameManual_->hide();
    PonerTamano(105, 34);
}

QLayout* FormBDCEditor::CrearArchivo() {
    Browse_ = NuevoBoton("Browse", Rotulo(80));
    FileToEdit_ = NuevoRotulo("FileToEdit", Palabra(palabra::NoSeEligioNingunArchivo));
    FileToEdit_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    LabelCompletado_ = NuevoRotulo("LabelCompletado", {});
    connect(Browse_, &QPushButton::clicked, this, [this] {
        Abrir(vista_.ElegirParaAbrir({ClaseDeArchivo::JuegoDeDatos, todosLosArchivos, RutaArchivo_})
                  .value_or(std::filesystem::path()));
    });
    auto* const fila = new QHBoxLayout;
    fila->addWidget(Browse_);
    fila->addWidget(FileToEdit_, 1);
    fila->addWidget(NuevoRotulo("LineasLabel", Palabra(palabra::Lineas)));
    fila->addWidget(LabelCompletado_);
    return fila;
}

void FormBDCEditor::CrearSeleccion() {
    FrameSeleccionar_ = NuevoMarco("FrameSeleccionar", Palabra(palabra::RegistrosACambiar));
    auto* const rejilla = new QGridLayout(FrameSeleccionar_);
    TransaccionCombo_ = NuevaLista(FrameSeleccionar_, QStringLiteral("TransaccionCombo"));
    rejilla->addWidget(NuevoRotulo("TransaccionLabel", Palabra(palabra::Transaccion), TransaccionCombo_), 0, 0);
    rejilla->addWidget(TransaccionCombo_, 0, 1);
    const int rotulos[] = {palabra::Condicion1, palabra::Condicion2, palabra::Condicion3};
    for (std::size_t i = 0; i < condiciones_.size(); ++i) {
        auto& [campo, accion, valor] = condiciones_[i];
        const QString n = QString::number(i + 1);
        campo = NuevaLista(FrameSeleccionar_, QStringLiteral("Campo%1Combo").arg(n));
        accion = ConNombre(new QComboBox(FrameSeleccionar_), QStringLiteral("Accion%1Combo").arg(n));
        PonerCombo(*accion, {Textos().Texto(214), Textos().Texto(215)});
        valor = NuevaCajaEnMayusculas(FrameSeleccionar_, QStringLiteral("Valor%1Texto").arg(n));
        valor->setAccessibleName(SinLetra(Palabra(rotulos[i])));
        accion->setAccessibleName(SinLetra(Palabra(rotulos[i])));
        const int fila = static_cast<int>(i) + 1;
        rejilla->addWidget(
            NuevoRotulo(QStringLiteral("Condicion%1Label").arg(n).toLatin1().constData(), Palabra(rotulos[i]), campo), fila, 0);
        rejilla->addWidget(campo, fila, 1);
        rejilla->addWidget(accion, fila, 2);
        rejilla->addWidget(valor, fila, 3);
    }
    OpcionSiempre_ = ConNombre(new QRadioButton(Palabra(palabra::TodasLasAparicionesCumplen), FrameSeleccionar_),
                               QStringLiteral("OpcionSiempre"));
    OpcionUnaVez_ =
        ConNombre(new QRadioButton(Palabra(palabra::BastaUnaAparicion), FrameSeleccionar_), QStringLiteral("OpcionUnaVez"));
    rejilla->addWidget(OpcionSiempre_, 4, 1, 1, 3);
    rejilla->addWidget(OpcionUnaVez_, 5, 1, 1, 3);
    rejilla->setColumnStretch(1, 2);
    rejilla->setColumnStretch(3, 3);
}

void FormBDCEditor::CrearReemplazo() {
    FrameReemplazar_ = NuevoMarco("FrameReemplazar", Palabra(palabra::Reemplazo));
    auto* const rejilla = new QGridLayout(FrameReemplazar_);
    ComboField_ = NuevaLista(FrameReemplazar_, QStringLiteral("ComboField"));
    NuevoValorCampo_ = ConNombre(new CajaDeLinea(FrameReemplazar_), QStringLiteral("NuevoValorCampo"));
    OptionCualquiera_ =
        ConNombre(new QRadioButton(Palabra(palabra::CualquierValor), FrameReemplazar_), QStringLiteral("OptionCualquiera"));
    OptionValor_ =
        ConNombre(new QRadioButton(Palabra(palabra::SoloUnValorQueContiene), FrameReemplazar_), QStringLiteral("OptionValor"));
    CrearValor();
    rejilla->addWidget(NuevoRotulo("FieldLabel", Palabra(palabra::RotuloCampo), ComboField_), 0, 0);
    rejilla->addWidget(ComboField_, 0, 1);
    rejilla->addWidget(NuevoRotulo("NuevoValorLabel", Palabra(palabra::ValorNuevo), NuevoValorCampo_), 1, 0);
    rejilla->addWidget(NuevoValorCampo_, 1, 1);
    rejilla->addWidget(NuevoRotulo("ValorViejoLabel", Palabra(palabra::ReemplazaA)), 2, 0);
    rejilla->addWidget(OptionCualquiera_, 2, 1);
    rejilla->addWidget(OptionValor_, 3, 1);
    rejilla->addWidget(FrameValor_, 0, 2, 4, 1);
    rejilla->setColumnStretch(1, 1);
    rejilla->setColumnStretch(2, 1);

    connect(OptionCualquiera_, &QRadioButton::toggled, this, &FormBDCEditor::HabilitarValor);
    connect(NuevoValorCampo_, &QLineEdit::textChanged, this, [this] {
        NuevoValorCampo_->PonerTexto(AjustarNuevoValor(datos_, TextoDe(*ComboField_), NuevoValorCampo_->Texto(), Textos(), vista_));
    });
}

void FormBDCEditor::CrearValor() {
    FrameValor_ = NuevoMarco("FrameValor", Palabra(palabra::ValorAnterior));
    ValorCampo_ = NuevaCajaEnMayusculas(FrameValor_, QStringLiteral("ValorCampo"));
    ValorCampo_->setAccessibleName(FrameValor_->title());
    OptionTodo_ = ConNombre(new QRadioButton(Palabra(palabra::ReemplazarTodoElValor), FrameValor_), QStringLiteral("OptionTodo"));
    OptionParte_ =
        ConNombre(new QRadioButton(Palabra(palabra::ReemplazarEstaParteDelValor), FrameValor_), QStringLiteral("OptionParte"));
    auto* const orden = new QVBoxLayout(FrameValor_);
    orden->addWidget(ValorCampo_);
    orden->addWidget(OptionTodo_);
    orden->addWidget(OptionParte_);
    orden->addStretch();
}

void FormBDCEditor::CrearManual() {
    FrameManual_ = NuevoMarco("FrameManual", Palabra(palabra::LineasDelArchivo));
    TextoManual_ = new VistaDeLineas(FrameManual_);
    TextoManual_->setObjectName(QStringLiteral("TextoManual"));
    TextoManual_->setAccessibleName(FrameManual_->title());
    PosicionManual_ = NuevoRotulo("PosicionManual", {});
    connect(TextoManual_, &VistaDeLineas::PosicionCambiada, this, [this](qulonglong linea, qulonglong lineas) {
        PosicionManual_->setText(lineas == 0 ? QString() : Palabra(palabra::LineaDeLineas).arg(linea + 1).arg(lineas));
    });
    auto* const orden = new QVBoxLayout(FrameManual_);
    orden->addWidget(TextoManual_, 1);
    orden->addWidget(PosicionManual_);
}

QLayout* FormBDCEditor::CrearEjecucion() {
    Ejecutar_ = NuevoBoton("Ejecutar", Palabra(palabra::Reemplazar));
    ProgressBar1_ = new QProgressBar(this);
    ProgressBar1_->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1_->setRange(0, pasosDeProgreso);
    ProgressBar1_->setFormat(QStringLiteral("%p %"));
    Detener_ = NuevoBoton("Detener", Palabra(palabra::Detener));
    Detener_->setEnabled(false);
    connect(Ejecutar_, &QPushButton::clicked, this, &FormBDCEditor::Ejecutar);
    connect(Detener_, &QPushButton::clicked, this, [this] { detener_ = true; });
    auto* const fila = new QHBoxLayout;
    fila->addWidget(ProgressBar1_, 1);
    fila->addWidget(Detener_);
    fila->addWidget(Ejecutar_);
    return fila;
}

void FormBDCEditor::CambiarVista() {
    manual_ = !manual_;
    FrameSeleccionar_->setVisible(!manual_);
    FrameReemplazar_->setVisible(!manual_);
    FrameManual_->setVisible(manual_);
    EdicionButton_->setText(Rotulo(manual_ ? rotuloDeCondiciones : rotuloDeManual));
    if (manual_) TextoManual_->setFocus();
}

void FormBDCEditor::ResetearValores() {
    datos_ = {};
    TransaccionCombo_->clear();
    ComboField_->clear();
    for (const auto& [campo, accion, valor] : condiciones_) {
        campo->clear();
        accion->setCurrentIndex(0);
        valor->clear();
    }
    NuevoValorCampo_->clear();
    ValorCampo_->clear();
    OpcionSiempre_->setChecked(true);
    OptionCualquiera_->setChecked(true);
    OptionTodo_->setChecked(true);
    LabelCompletado_->setText(QStringLiteral("0"));
    ProgressBar1_->setValue(0);
}

void FormBDCEditor::SetearCampos(bool activo) {
    FrameSeleccionar_->setEnabled(activo);
    FrameReemplazar_->setEnabled(activo);
    Ejecutar_->setEnabled(activo);
    HabilitarValor();
}

void FormBDCEditor::HabilitarValor() { FrameValor_->setEnabled(OptionValor_->isChecked()); }

void FormBDCEditor::Abrir(const std::filesystem::path& ruta) {
    ResetearValores();
    SetearCampos(false);
    TextoManual_->Cerrar();
    RutaArchivo_ = ruta;
    const QString nombre = QString::fromStdString(ruta.string());
    const bool hay = !EstaEnBlanco(ruta.string());
    FileToEdit_->setText(hay ? nombre : Palabra(palabra::NoSeEligioNingunArchivo));
    FileToEdit_->setToolTip(nombre);
    if (!hay) return;
    AbrirManual();
    std::optional<JuegoDeDatos> leido;
    ConProgreso([&](const Progreso& progreso) { leido = ExaminarJuegoDeDatos(ruta, Textos(), vista_, progreso); });
    if (!leido) return;
    datos_ = std::move(*leido);
    FileToEdit_->setText(QStringLiteral(" %1: %2").arg(QLatin1String(NombreDeTipo(datos_.tipo)), nombre));
    LabelCompletado_->setText(QString::number(datos_.lineas));
    LlenarListas();
    SetearCampos(true);
}

void FormBDCEditor::LlenarListas() {
    const bool esTabla = datos_.tipo == TipoArchivo::DATAERRORS;
    std::vector<std::string> transacciones = {"<" + Textos().Texto(esTabla ? 216 : 119) + ">"};
    transacciones.insert(transacciones.end(), datos_.transacciones.begin(), datos_.transacciones.end());
    PonerCombo(*TransaccionCombo_, transacciones);
    PonerCombo(*ComboField_, datos_.campos);
    ComboField_->setCurrentIndex(-1);
    // The empty one stands for no condition.
    std::vector<std::string> campos = {""};
    campos.insert(campos.end(), datos_.campos.begin(), datos_.campos.end());
    for (const auto& condicion : condiciones_) PonerCombo(*condicion.campo, campos);
}

// A file that can't be opened has its message from the scan.
void FormBDCEditor::AbrirManual() {
    try {
        TextoManual_->Abrir(RutaArchivo_);
    } catch (const FalloDeEjecucion&) {
        TextoManual_->Cerrar();
    }
}

Reemplazo FormBDCEditor::PedidoDeReemplazo() const {
    Reemplazo reemplazo;
    reemplazo.campo = TextoDe(*ComboField_);
    reemplazo.nuevo = NuevoValorCampo_->Texto();
    if (OptionValor_->isChecked()) reemplazo.modo = OptionTodo_->isChecked() ? ModoDeReemplazo::Todo : ModoDeReemplazo::Parte;
    reemplazo.viejo = ValorCampo_->Texto();
    if (TransaccionCombo_->currentIndex() > 0) reemplazo.transaccion = TextoDe(*TransaccionCombo_);
    for (std::size_t i = 0; i < condiciones_.size(); ++i) {
        const auto& [campo, accion, valor] = condiciones_[i];
        reemplazo.condiciones[i] = {TextoDe(*campo), accion->currentIndex() == 1, valor->Texto()};
    }
    reemplazo.unaVez = OpcionUnaVez_->isChecked();
    return reemplazo;
}

void FormBDCEditor::Ejecutar() {
    for (const auto& [campo, accion, valor] : condiciones_) {
        if (EstaEnBlanco(TextoDe(*campo))) valor->clear();
    }
    const auto reemplazo = PedidoDeReemplazo();
    if (EstaEnBlanco(reemplazo.campo)) {
        vista_.Advertir(MensajeDePalabra(Textos(), palabra::ElijaElCampoAReemplazar));
        ComboField_->setFocus();
        return;
    }
    ConProgreso([&](const Progreso& progreso) { ReemplazarValores(RutaArchivo_, datos_, reemplazo, Textos(), vista_, progreso); });
    AbrirManual();
}

void FormBDCEditor::ConProgreso(const std::function<void(const Progreso&)>& accion) {
    trabajando_ = true;
    detener_ = false;
    const std::array<QWidget*, 7> quietos = {Browse_, FrameSeleccionar_, FrameReemplazar_, Ejecutar_, EdicionButton_, Ayuda_, OK_};
    std::array<bool, 7> antes{};
    for (std::size_t i = 0; i < quietos.size(); ++i) {
        antes[i] = quietos[i]->isEnabledTo(this);
        quietos[i]->setEnabled(false);
    }
    Detener_->setEnabled(true);
    {
        const ConPunteroOcupado puntero(vista_);
        accion([this](double parte) {
            ProgressBar1_->setValue(static_cast<int>(parte * pasosDeProgreso));
            QCoreApplication::processEvents();
            return !detener_;
        });
    }
    Detener_->setEnabled(false);
    for (std::size_t i = 0; i < quietos.size(); ++i) quietos[i]->setEnabled(antes[i]);
    ProgressBar1_->setValue(0);
    trabajando_ = false;
}

bool FormBDCEditor::PuedeCerrar() {
    if (trabajando_) detener_ = true;
    return !trabajando_;
}

}  // namespace qor
