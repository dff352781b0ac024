#include "input/qt/kind_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <string_view>
#include <utility>

#include "base/failure.h"
#include "base/message_text.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "input/value_checks.h"
#include "input/value_pattern.h"

namespace qor {

namespace {

constexpr int rotuloDeExaminar = 80;

template <typename T, typename... Argumentos>
T* ConNombre(const char* nombre, Argumentos&&... argumentos) {
    auto* const control = new T(std::forward<Argumentos>(argumentos)...);
    control->setObjectName(QString::fromLatin1(nombre));
    return control;
}

}  // namespace

PanelDeClase::PanelDeClase(const TextosIdioma& textos, Elegir elegir, QWidget* padre)
    : QGroupBox(padre),
      textos_(textos),
      elegir_(std::move(elegir)),
      nombre_(ConNombre<QLabel>("CampoDeClase", this)),
      obligatorio_(ConNombre<QCheckBox>("Obligatorio", Palabra(textos, palabra::Obligatorio), this)),
      tipo_(ConNombre<QComboBox>("TipoDeCampo", this)),
      decimal_(ConNombre<QComboBox>("SignoDecimal", this)),
      formato_(ConNombre<QComboBox>("FormatoDeFecha", this)),
      patron_(ConNombre<CajaDeLinea>("PatronDeCampo", this)),
      lista_(ConNombre<CajaDeLinea>("ListaDeValores", this)),
      examinar_(ConNombre<QPushButton>("ExaminarLista", TextoQt(textos.Texto(rotuloDeExaminar)), this)),
      falta_(ConNombre<QLabel>("FaltaDeClase", this)) {
    setObjectName(QStringLiteral("PanelDeClase"));
    setTitle(Palabra(textos, palabra::ControlesDelCampo));
    QFont negrita = nombre_->font();
    negrita.setBold(true);
    nombre_->setFont(negrita);
    nombre_->setTextFormat(Qt::PlainText);
    for (const int tipo : {palabra::TipoCualquierTexto, palabra::TipoNumero, palabra::TipoFecha})
        tipo_->addItem(Palabra(textos, tipo));
    decimal_->addItem(Palabra(textos, palabra::DecimalConPunto));
    decimal_->addItem(Palabra(textos, palabra::DecimalConComa));
    formato_->setEditable(true);
    formato_->addItems({QStringLiteral("YYYYMMDD"), QStringLiteral("DD.MM.YYYY"), QStringLiteral("DDMMYYYY"),
                        QStringLiteral("MM/DD/YYYY"), QStringLiteral("YYYY-MM-DD"), QStringLiteral("DD.MM.YY")});
    formato_->setMinimumContentsLength(10);
    lista_->setPlaceholderText(Palabra(textos, palabra::ArchivoDeValoresAdmitidos));
    patron_->setPlaceholderText(Palabra(textos, palabra::PorEjemplo).arg(QStringLiteral("[0-9]{10}")));
    examinar_->setAutoDefault(false);
    falta_->setWordWrap(true);
    falta_->setTextFormat(Qt::PlainText);

    auto* const orden = new QGridLayout(this);
    orden->addWidget(nombre_, 0, 0, 1, 2);
    orden->addWidget(obligatorio_, 1, 0, 1, 2);
    AgregarFila(orden, "TipoDeCampoLabel", palabra::Tipo, tipo_);
    AgregarFila(orden, "SignoDecimalLabel", palabra::SignoDecimal, decimal_);
    AgregarFila(orden, "FormatoDeFechaLabel", palabra::FormaDeLaFecha, formato_);
    AgregarFila(orden, "PatronDeCampoLabel", palabra::Patron, patron_);
    AgregarFila(orden, "ListaDeValoresLabel", palabra::Valores, lista_);
    orden->addWidget(examinar_, orden->rowCount(), 1, Qt::AlignRight);
    orden->addWidget(falta_, orden->rowCount(), 0, 1, 2);
    orden->setRowStretch(orden->rowCount(), 1);
    orden->setColumnStretch(1, 1);

    connect(obligatorio_, &QCheckBox::toggled, this, &PanelDeClase::Leer);
    for (auto* const combo : {tipo_, decimal_}) connect(combo, &QComboBox::currentIndexChanged, this, &PanelDeClase::Leer);
    connect(formato_, &QComboBox::currentTextChanged, this, &PanelDeClase::Leer);
    for (auto* const caja : {patron_, lista_}) connect(caja, &QLineEdit::textChanged, this, &PanelDeClase::Leer);
    connect(examinar_, &QPushButton::clicked, this, &PanelDeClase::ElegirLista);
    Mostrar({}, {}, {});
}

template <typename Control>
void PanelDeClase::AgregarFila(QGridLayout* orden, const char* nombre, int rotulo, Control* control) {
    auto* const titulo = ConNombre<QLabel>(nombre, Palabra(textos_, rotulo), this);
    titulo->setBuddy(control);
    const int fila = orden->rowCount();
    orden->addWidget(titulo, fila, 0);
    orden->addWidget(control, fila, 1);
}

void PanelDeClase::Mostrar(const std::string& campo, const ClaseDeCampo& clase, const std::filesystem::path& documento) {
    documento_ = documento;
    // What is being typed and says nothing yet stays.
    if (mostrado_ && campo == campo_ && clase == dicha_) return;
    mostrado_ = true;
    dicha_ = clase;
    mostrando_ = true;
    campo_ = campo;
    setEnabled(!campo.empty());
    nombre_->setText(campo.empty() ? Palabra(textos_, palabra::NingunCampo) : TextoQt(campo));
    obligatorio_->setChecked(clase.obligatorio);
    tipo_->setCurrentIndex(static_cast<int>(clase.tipo));
    decimal_->setCurrentIndex(clase.decimal == ',' ? 1 : 0);
    if (clase.formato.empty()) {
        formato_->setCurrentIndex(0);
    } else {
        formato_->setEditText(TextoQt(clase.formato));
    }
    patron_->PonerTexto(clase.patron);
    lista_->PonerTexto(clase.lista);
    clase_ = clase;
    falta_->clear();
    MostrarDeTipo();
    mostrando_ = false;
}

// What says nothing of a type is not shown.
void PanelDeClase::MostrarDeTipo() {
    using Tipo = ClaseDeCampo::Tipo;
    const auto mostrar = [this](QWidget* control, Tipo tipo) {
        const bool deTipo = tipo_->currentIndex() == static_cast<int>(tipo);
        control->setVisible(deTipo);
        findChild<QLabel*>(control->objectName() + QStringLiteral("Label"))->setVisible(deTipo);
    };
    mostrar(decimal_, Tipo::Numero);
    mostrar(formato_, Tipo::Fecha);
}

void PanelDeClase::Leer() {
    if (mostrando_) return;
    MostrarDeTipo();
    ClaseDeCampo clase;
    clase.obligatorio = obligatorio_->isChecked();
    clase.tipo = static_cast<ClaseDeCampo::Tipo>(tipo_->currentIndex());
    if (clase.tipo == ClaseDeCampo::Tipo::Numero) clase.decimal = decimal_->currentIndex() == 1 ? ',' : '.';
    if (clase.tipo == ClaseDeCampo::Tipo::Fecha) clase.formato = TextoDelModelo(formato_->currentText());
    clase.patron = patron_->Texto();
    clase.lista = std::string(Recortar(lista_->Texto()));
    const QString falta = Falta(clase);
    falta_->setText(falta);
    clase_ = falta.isEmpty() ? std::optional(clase) : std::nullopt;
    if (!clase_) return;
    dicha_ = *clase_;
    emit Cambiada();
}

QString PanelDeClase::Falta(const ClaseDeCampo& clase) const {
    if (clase.tipo == ClaseDeCampo::Tipo::Fecha && !FormatoDeFecha::Leer(clase.formato)) {
        return Palabra(textos_, palabra::ComoSeEscribeUnaFecha);
    }
    if (clase.patron.empty()) return {};
    try {
        const PatronDeValor patron(clase.patron);
    } catch (const FalloDeEjecucion& fallo) {
        return Palabra(textos_, palabra::ElPatronNoSePuedeUsar) + QLatin1Char(' ') +
               QString::fromStdString(EnPantalla(FalloDe(fallo), textos_));
    }
    return {};
}

// Beside the document a name is enough, so that both can be moved together.
void PanelDeClase::ElegirLista() {
    const auto ruta = elegir_();
    if (!ruta) return;
    std::filesystem::path nombre = *ruta;
    if (!documento_.empty()) {
        const auto relativa = ruta->lexically_relative(documento_.parent_path());
        if (!relativa.empty() && *relativa.begin() != "..") nombre = relativa;
    }
    lista_->PonerTexto(TextoDeRuta(nombre));
}

}  // namespace qor
