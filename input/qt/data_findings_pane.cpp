#include "input/qt/data_findings_pane.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "base/qt/fixed_font.h"
#include "base/qt/text.h"
#include "base/qt/whole_column.h"
#include "base/qt/words.h"
#include "input/preview_rows.h"
#include "input/qt/finding_words.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeValor = 60;
constexpr int lineasMinimas = 2;

QString Visible(std::string_view bytes) { return QString::fromStdString(TextoVisible(bytes)); }

QPushButton* NuevoBoton(const char* nombre, const QString& rotulo, QWidget* padre) {
    auto* const boton = new QPushButton(rotulo, padre);
    boton->setObjectName(QString::fromLatin1(nombre));
    boton->setAutoDefault(false);
    return boton;
}

}  // namespace

// ---- The rows ----

void ModeloDeHallazgosDeDatos::PonerIconos(const QIcon& error, const QIcon& aviso) {
    error_ = error;
    aviso_ = aviso;
}

void ModeloDeHallazgosDeDatos::Seguir(bool seguidos) {
    const int ahora = static_cast<int>(hallazgos_.Lista().size());
    if (seguidos && ahora >= filas_) {
        if (ahora == filas_) return;
        beginInsertRows({}, filas_, ahora - 1);
        filas_ = ahora;
        endInsertRows();
        return;
    }
    beginResetModel();
    filas_ = ahora;
    endResetModel();
}

QVariant ModeloDeHallazgosDeDatos::data(const QModelIndex& lugar, int papel) const {
    if (!lugar.isValid()) return {};
    const auto& hallazgo = hallazgos_.Lista().at(static_cast<std::size_t>(lugar.row()));
    const bool aviso = EsAviso(hallazgo.clase);
    if (papel == Qt::ToolTipRole)
        return QStringLiteral("<qt>") + TextoDeHallazgo(textos_, hallazgo).toHtmlEscaped() + QStringLiteral("</qt>");
    if (papel == Qt::DecorationRole && lugar.column() == Severidad) return aviso ? aviso_ : error_;
    if (papel == Qt::FontRole && lugar.column() == Valor) return LetraFija();
    if (papel != Qt::DisplayRole) return {};
    switch (lugar.column()) {
        case Severidad: return Palabra(textos_, aviso ? palabra::Indicio : palabra::Error);
        case Archivo: return archivos_.value(hallazgo.archivo);
        case Linea: return hallazgo.linea == 0 ? QString() : QString::number(hallazgo.linea);
        case Campo: return TextoQt(hallazgo.campo);
        case Valor: return Visible(std::string_view(hallazgo.valor).substr(0, maximoDeValor));
        default: return TextoDeHallazgo(textos_, hallazgo);
    }
}

QVariant ModeloDeHallazgosDeDatos::headerData(int columna, Qt::Orientation orientacion, int papel) const {
    if (orientacion != Qt::Horizontal || papel != Qt::DisplayRole) return {};
    switch (columna) {
        case Severidad: return Palabra(textos_, palabra::Gravedad);
        case Archivo: return Palabra(textos_, palabra::Archivo);
        case Linea: return Palabra(textos_, palabra::Linea);
        case Campo: return Palabra(textos_, palabra::Campo);
        case Valor: return Palabra(textos_, palabra::Valor);
        default: return Palabra(textos_, palabra::QueEstaMal);
    }
}

// ---- The pane ----

PanelDeHallazgosDeDatos::PanelDeHallazgosDeDatos(const TextosIdioma& textos, const HallazgosVistos& hallazgos, QWidget* padre)
    : QWidget(padre),
      textos_(textos),
      hallazgos_(hallazgos),
      modelo_(new ModeloDeHallazgosDeDatos(textos, hallazgos, this)),
      cuenta_(new QLabel(this)),
      progreso_(new QProgressBar(this)),
      revisar_(NuevoBoton("Revisar", Palabra(textos, palabra::Revisar), this)),
      detener_(NuevoBoton("DetenerRevision", Palabra(textos, palabra::Detener), this)),
      anterior_(NuevoBoton("HallazgoAnterior", Palabra(textos, palabra::Anterior), this)),
      siguiente_(NuevoBoton("HallazgoSiguiente", Palabra(textos, palabra::Siguiente), this)),
      lista_(new QTreeView(this)) {
    setObjectName(QStringLiteral("PanelDeHallazgosDeDatos"));
    cuenta_->setObjectName(QStringLiteral("CuentaDeHallazgos"));
    cuenta_->setTextFormat(Qt::PlainText);
    cuenta_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    progreso_->setObjectName(QStringLiteral("ProgresoDeRevision"));
    progreso_->setRange(0, 1000);
    progreso_->setFormat(QStringLiteral("%p %"));
    progreso_->setAccessibleName(Palabra(textos, palabra::AvanceDeLaRevision));
    progreso_->setMaximumWidth(fontMetrics().averageCharWidth() * 20);
    anterior_->setToolTip(QKeySequence(Qt::SHIFT | Qt::Key_F8).toString(QKeySequence::NativeText));
    siguiente_->setToolTip(QKeySequence(Qt::Key_F8).toString(QKeySequence::NativeText));
    lista_->setObjectName(QStringLiteral("ListaDeHallazgosDeDatos"));
    lista_->setAccessibleName(Palabra(textos, palabra::Hallazgos));
    lista_->setRootIsDecorated(false);
    lista_->setUniformRowHeights(true);
    lista_->setAllColumnsShowFocus(true);
    lista_->setAlternatingRowColors(true);
    lista_->setTabKeyNavigation(false);
    lista_->header()->setSectionsMovable(false);
    lista_->setModel(modelo_);
    MostrarEnteraLaUltimaColumna(*lista_);
    const auto letras = [this](int n) { return lista_->fontMetrics().averageCharWidth() * n; };
    const int anchos[] = {letras(9) + lista_->fontMetrics().height() * 2, letras(12), letras(11), letras(16), letras(22)};
    for (int columna = 0; columna < ModeloDeHallazgosDeDatos::Texto; ++columna) lista_->setColumnWidth(columna, anchos[columna]);

    auto* const cabeza = new QHBoxLayout;
    cabeza->addWidget(cuenta_, 1);
    cabeza->addWidget(progreso_);
    for (auto* const boton : {detener_, revisar_, anterior_, siguiente_}) cabeza->addWidget(boton);
    auto* const orden = new QVBoxLayout(this);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->setSpacing(3);
    orden->addLayout(cabeza);
    orden->addWidget(lista_, 1);

    connect(revisar_, &QPushButton::clicked, this, &PanelDeHallazgosDeDatos::RevisionPedida);
    connect(detener_, &QPushButton::clicked, this, &PanelDeHallazgosDeDatos::AltoPedido);
    connect(anterior_, &QPushButton::clicked, this, [this] { emit VecinoPedido(-1); });
    connect(siguiente_, &QPushButton::clicked, this, [this] { emit VecinoPedido(1); });
    connect(lista_, &QTreeView::activated, this, [this](const QModelIndex& lugar) { emit Activado(lugar.row()); });
    connect(lista_, &QTreeView::clicked, this, [this](const QModelIndex& lugar) { emit Activado(lugar.row()); });
    Mostrar({}, false);
}

void PanelDeHallazgosDeDatos::Mostrar(const Estado& estado, bool seguidos) {
    modelo_->Seguir(seguidos);
    cuenta_->setText(Cuenta(estado));
    cuenta_->setToolTip(cuenta_->text());
    progreso_->setValue(estado.porMil);
    progreso_->setVisible(estado.corriendo);
    // The buttons take turns; the focus goes with them.
    const bool conFoco = detener_->hasFocus() || revisar_->hasFocus();
    detener_->setVisible(estado.corriendo);
    revisar_->setVisible(!estado.corriendo);
    if (conFoco) (estado.corriendo ? detener_ : revisar_)->setFocus();
    const bool hay = !hallazgos_.Lista().empty();
    anterior_->setEnabled(hay);
    siguiente_->setEnabled(hay);
}

void PanelDeHallazgosDeDatos::MostrarArchivos(bool varios) { lista_->setColumnHidden(ModeloDeHallazgosDeDatos::Archivo, !varios); }

QString PanelDeHallazgosDeDatos::Cuenta(const Estado& estado) const {
    if (!estado.fallo.isEmpty() || !estado.empezado) return estado.fallo;
    QStringList partes;
    const auto agregar = [&](std::uint64_t cuantos, int uno, int varios) {
        if (cuantos > 0) partes << Palabra(textos_, cuantos == 1 ? uno : varios).arg(QLocale().toString(cuantos));
    };
    agregar(hallazgos_.Errores(), palabra::CuentaDeUnError, palabra::CuentaDeErrores);
    agregar(hallazgos_.Avisos(), palabra::CuentaDeUnIndicio, palabra::CuentaDeIndicios);
    if (partes.isEmpty() && estado.completo) partes << Palabra(textos_, palabra::SinHallazgos);
    if (!hallazgos_.Completos())
        partes << Palabra(textos_, palabra::SeMuestranSoloAlgunos).arg(QLocale().toString(modelo_->rowCount()));
    if (estado.corriendo) {
        partes << Palabra(textos_, palabra::Revisando);
    } else if (!estado.completo) {
        partes << Palabra(textos_, palabra::NoSeRevisaronHastaElFinal);
    }
    return partes.join(QStringLiteral(", "));
}

int PanelDeHallazgosDeDatos::Elegido() const {
    const QModelIndex lugar = lista_->currentIndex();
    return lugar.isValid() ? lugar.row() : -1;
}

void PanelDeHallazgosDeDatos::Elegir(int hallazgo) {
    const QModelIndex lugar = hallazgo < 0 ? QModelIndex() : modelo_->index(hallazgo, 0);
    lista_->setCurrentIndex(lugar);
    if (lugar.isValid()) lista_->scrollTo(lugar);
}

QSize PanelDeHallazgosDeDatos::minimumSizeHint() const {
    const int alto = revisar_->sizeHint().height() + layout()->spacing() + lista_->header()->sizeHint().height() +
                     lineasMinimas * (fontMetrics().height() + 4) + 2 * lista_->frameWidth();
    return {0, alto};
}

}  // namespace qor
