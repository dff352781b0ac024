#include "app/qt/rehearsal_request.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "app/pages/controls.h"
#include "app/rehearsal_lines.h"
#include "base/qt/reading_order.h"
#include "base/qt/text.h"
#include "base/qt/words.h"

namespace qor {

namespace {

constexpr int rotuloDeExaminar = 80;
constexpr int letrasDeRuta = 16;  // seen at least
constexpr int letrasDeSistema = 14;
constexpr int filasSinBarra = 4;  // of files, seen at once

}  // namespace

PanelDePedido::PanelDePedido(const TextosIdioma& textos, Vista& vista, QWidget* padre)
    : QWidget(padre), textos_(textos), vista_(vista) {
    setObjectName(QStringLiteral("PanelDePedido"));
    zona_ = Nuevo<QScrollArea>("ArchivosDeEntrada", this);
    zona_->setFrameShape(QFrame::NoFrame);
    zona_->setWidgetResizable(true);
    zona_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    zona_->setFocusPolicy(Qt::NoFocus);
    auto* const orden = new QHBoxLayout(this);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->setSpacing(12);
    orden->addWidget(zona_, 5, Qt::AlignTop);
    orden->addLayout(CrearEleccion(), 4);
    PonerArchivos({});
}

void PanelDePedido::PonerArchivo(const std::string& parametro, const std::filesystem::path& ruta) {
    for (const auto& fila : filas_) {
        if (fila.parametro == parametro) fila.ruta->setText(NombreQt(ruta));
    }
}

void PanelDePedido::Reiniciar() {
    registros_->setCurrentIndex(0);
    fallos_->clear();
    parametros_->clear();
}

QLayout* PanelDePedido::CrearEleccion() {
    registros_ = Nuevo<QComboBox>("Registros", this);
    registros_->setEditable(true);
    registros_->setInsertPolicy(QComboBox::NoInsert);
    registros_->addItems(
        {QStringLiteral("1-10"), QStringLiteral("1-100"), QStringLiteral("1-1000"), Palabra(textos_, palabra::Todos)});
    registros_->setToolTip(Palabra(textos_, palabra::DeUnoAOtro));
    fallos_ = Nuevo<QLineEdit>("Fallos", this);
    fallos_->setPlaceholderText(Palabra(textos_, palabra::NingunoComoFallos));
    parametros_ = Nuevo<QLineEdit>("Parametros", this);
    parametros_->setPlaceholderText(Palabra(textos_, palabra::ComoLosTieneElReport));
    sistema_ = Nuevo<QComboBox>("Sistema", this);
    sistema_->addItems({Palabra(textos_, palabra::EnMemoria), Palabra(textos_, palabra::ElMioEnSuArchivo)});
    for (auto* const combo : {registros_, sistema_}) {
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(letrasDeSistema);
    }
    auto* const rejilla = new QGridLayout;
    rejilla->setVerticalSpacing(4);
    int fila = 0;
    const auto agregar = [&](const char* nombre, int rotulo, QWidget* control) {
        auto* const texto = new QLabel(Palabra(textos_, rotulo), this);
        texto->setObjectName(QString::fromLatin1(nombre));
        texto->setBuddy(control);
        control->setAccessibleName(SinLetra(Palabra(textos_, rotulo)).remove(QLatin1Char(':')));
        rejilla->addWidget(texto, fila, 0);
        rejilla->addWidget(control, fila++, 1);
    };
    agregar("RegistrosLabel", palabra::RotuloRegistros, registros_);
    agregar("FallosLabel", palabra::QueFallen, fallos_);
    agregar("ParametrosLabel", palabra::Parametros, parametros_);
    agregar("SistemaLabel", palabra::RotuloSistemaDePractica, sistema_);
    rejilla->setColumnStretch(1, 1);
    rejilla->setRowStretch(fila, 1);
    return rejilla;
}

// ---- Files ----

QLineEdit* PanelDePedido::NuevaRuta(int fila, const char* nombre, const QString& rotulo,
                                    const std::function<void(QLineEdit*)>& examinar) {
    QWidget* const padre = zona_->widget();
    auto* const rejilla = static_cast<QGridLayout*>(padre->layout());
    const QString propio = QString::fromLatin1(nombre);
    const QString sinLetra = SinLetra(rotulo).remove(QLatin1Char(':'));
    auto* const caja = new QLineEdit(padre);
    caja->setObjectName(propio);
    caja->setAccessibleName(sinLetra);
    caja->setMinimumWidth(fontMetrics().averageCharWidth() * letrasDeRuta);
    connect(caja, &QLineEdit::textChanged, caja, &QWidget::setToolTip);
    auto* const texto = new QLabel(rotulo, padre);
    texto->setObjectName(propio + QStringLiteral("Label"));
    texto->setBuddy(caja);
    auto* const boton = new QPushButton(TextoQt(textos_.Texto(rotuloDeExaminar)), padre);
    boton->setObjectName(QStringLiteral("Examinar") + propio);
    boton->setAccessibleName(boton->text() + QLatin1Char(' ') + sinLetra);
    boton->setAutoDefault(false);
    connect(boton, &QPushButton::clicked, this, [caja, examinar] { examinar(caja); });
    rejilla->addWidget(texto, fila, 0);
    rejilla->addWidget(caja, fila, 1);
    rejilla->addWidget(boton, fila, 2);
    return caja;
}

void PanelDePedido::PonerArchivos(const std::vector<ArchivoPedido>& archivos) {
    const auto carpeta = valores_ == nullptr ? std::filesystem::path() : Valores();
    filas_.clear();
    auto* const dentro = new QWidget(zona_);
    auto* const rejilla = new QGridLayout(dentro);
    rejilla->setContentsMargins(0, 0, 0, 0);
    rejilla->setVerticalSpacing(4);
    rejilla->setColumnStretch(1, 1);
    zona_->setWidget(dentro);
    int fila = 0;
    for (const auto& archivo : archivos) {
        const QString parametro = TextoQt(archivo.parametro);
        const QString rotulo = fila == 0 ? Palabra(textos_, palabra::RotuloRegistrosPrincipales).arg(parametro)
                                         : Palabra(textos_, palabra::RotuloStepLoop).arg(QString::number(fila), parametro);
        auto* const caja = NuevaRuta(fila, archivo.parametro.c_str(), rotulo,
                                     [this, nombre = archivo.parametro](QLineEdit* suya) { Examinar(nombre, suya); });
        caja->setText(NombreQt(archivo.ruta));
        caja->setPlaceholderText(Palabra(textos_, palabra::NoSeEligioNingunArchivo));
        connect(caja, &QLineEdit::editingFinished, this, [this, parametro, caja] { emit ArchivoElegido(parametro, caja->text()); });
        filas_.push_back({archivo.parametro, caja});
        ++fila;
    }
    tablas_ = nullptr;
    if (archivos.empty()) {
        auto* const sinArchivo = new QLabel(Palabra(textos_, palabra::LosRegistrosNoVienenDeArchivo), dentro);
        sinArchivo->setObjectName(QStringLiteral("SinArchivo"));
        sinArchivo->setWordWrap(true);
        rejilla->addWidget(sinArchivo, fila++, 0, 1, 3);
        tablas_ = Nuevo<QLineEdit>("Tablas", dentro);
        tablas_->setAccessibleName(SinLetra(Palabra(textos_, palabra::Tablas)).remove(QLatin1Char(':')));
        tablas_->setPlaceholderText(Palabra(textos_, palabra::NingunaTabla));
        tablas_->setToolTip(Palabra(textos_, palabra::TablasDeArchivos));
        auto* const rotulo = new QLabel(Palabra(textos_, palabra::Tablas), dentro);
        rotulo->setBuddy(tablas_);
        rejilla->addWidget(rotulo, fila, 0);
        rejilla->addWidget(tablas_, fila++, 1, 1, 2);
    }
    valores_ = NuevaRuta(fila++, "Valores", Palabra(textos_, palabra::ListasDeValores),
                         [this](QLineEdit* caja) { ExaminarValores(caja); });
    valores_->setPlaceholderText(Palabra(textos_, palabra::LaCarpetaValues));
    valores_->setAccessibleDescription(Palabra(textos_, palabra::CarpetaDeLasListas));
    PonerValores(carpeta);
    // The boxes can be too narrow for what stands there.
    for (auto* const caja : {fallos_, parametros_, valores_}) {
        caja->setToolTip(caja->text().isEmpty() ? caja->placeholderText() : caja->text());
    }
    rejilla->setRowStretch(fila, 1);
    // The bar takes room beside the rows, and only where there are many of them.
    const int alto = valores_->sizeHint().height() + rejilla->verticalSpacing();
    zona_->setMinimumWidth(dentro->minimumSizeHint().width() +
                           (fila > filasSinBarra ? zona_->verticalScrollBar()->sizeHint().width() : 0));
    zona_->setFixedHeight(alto * std::clamp(fila, 2, filasSinBarra));
    zona_->setVerticalScrollBarPolicy(fila > filasSinBarra ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    OrdenarTabulador(*window());
}

std::vector<ArchivoPedido> PanelDePedido::Archivos() const {
    std::vector<ArchivoPedido> archivos;
    for (const auto& fila : filas_) archivos.push_back({fila.parametro, RutaDeQt(fila.ruta->text().trimmed())});
    return archivos;
}

void PanelDePedido::Examinar(const std::string& parametro, QLineEdit* caja) {
    const auto presente = RutaDeQt(caja->text().trimmed());
    const auto elegida = vista_.ElegirParaAbrir({ClaseDeArchivo::Entrada, todosLosArchivos, presente});
    if (!elegida) return;
    caja->setText(NombreQt(*elegida));
    emit ArchivoElegido(TextoQt(parametro), caja->text());
}

void PanelDePedido::ExaminarValores(QLineEdit* caja) {
    const auto elegida = vista_.ElegirCarpeta({ClaseDeArchivo::ListaDeValores, {}, Valores()});
    if (elegida) caja->setText(NombreQt(*elegida));
}

void PanelDePedido::PonerTablas(const std::string& tablas) {
    if (tablas_ != nullptr) tablas_->setText(TextoQt(tablas));
}

void PanelDePedido::PonerValores(const std::filesystem::path& carpeta) { valores_->setText(NombreQt(carpeta)); }

std::filesystem::path PanelDePedido::Valores() const { return RutaDeQt(valores_->text().trimmed()); }

void PanelDePedido::EnfocarPrimero() { (filas_.empty() ? static_cast<QWidget*>(registros_) : filas_.front().ruta)->setFocus(); }

// ---- What is typed ----

bool PanelDePedido::Rehusar(QWidget* control, int motivo, const std::string& pieza) {
    vista_.Advertir(MensajeDePalabra(textos_, motivo, {pieza}));
    window()->activateWindow();
    control->setFocus(Qt::OtherFocusReason);
    return false;
}

bool PanelDePedido::Leer(Pedido& pedido) {
    const QString registros = registros_->currentText().trimmed();
    const bool todos = registros.compare(Palabra(textos_, palabra::Todos), Qt::CaseInsensitive) == 0;
    if (!LeerTramoPedido(todos ? std::string() : TextoDelModelo(registros), pedido.tramo)) {
        return Rehusar(registros_, palabra::FormaDeLosRegistros, TextoDelModelo(registros));
    }
    if (const auto mala = LeerFallosPedidos(TextoDelModelo(fallos_->text()), pedido.fallos); !mala.empty()) {
        return Rehusar(fallos_, palabra::FormaDeLosFallos, mala);
    }
    if (const auto mala = LeerParesPedidos(TextoDelModelo(parametros_->text()), pedido.parametros); !mala.empty()) {
        return Rehusar(parametros_, palabra::FormaDeLosParametros, mala);
    }
    if (tablas_ == nullptr) return true;
    if (const auto mala = LeerParesPedidos(TextoDelModelo(tablas_->text()), pedido.tablas); !mala.empty()) {
        return Rehusar(tablas_, palabra::FormaDeLasTablas, mala);
    }
    return true;
}

bool PanelDePedido::EnArchivoPropio() const { return sistema_->currentIndex() == 1; }

}  // namespace qor
