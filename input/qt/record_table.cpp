#include "input/qt/record_table.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "base/qt/fixed_font.h"
#include "input/qt/tints.h"

namespace qor {

namespace {

constexpr int lineasPorRueda = 3;
constexpr int letrasMaximas = 40;  // of a column as it is first shown
constexpr int letrasMinimas = 4;
constexpr int letrasDeResto = 30;
constexpr int lineasDeMuestra = 60;  // looked at for the widths of columns

QColor ColorQuieto(const QStyleOptionViewItem& opcion, bool elegida) {
    const QColor texto = opcion.palette.color(elegida ? QPalette::HighlightedText : QPalette::Text);
    const QColor fondo = opcion.palette.color(elegida ? QPalette::Highlight : QPalette::Base);
    constexpr int parte = 62;  // still 4.5 to 1 on either palette
    return Mezcla(fondo, texto, parte);
}

}  // namespace

// ---- The cells ----

void DelegadoDeRegistros::paint(QPainter* pintor, const QStyleOptionViewItem& opcion, const QModelIndex& lugar) const {
    const QString nombre = lugar.data(ModeloDeRegistros::NombreEnCelda).toString();
    if (nombre.isEmpty()) return QStyledItemDelegate::paint(pintor, opcion, lugar);
    QStyleOptionViewItem celda = opcion;
    initStyleOption(&celda, lugar);
    const QString valor = std::exchange(celda.text, QString());
    const QStyle* const estilo = opcion.widget != nullptr ? opcion.widget->style() : QApplication::style();
    estilo->drawControl(QStyle::CE_ItemViewItem, &celda, pintor, opcion.widget);
    // Where the text would stand.
    celda.text = QStringLiteral("x");
    const int margen = estilo->pixelMetric(QStyle::PM_FocusFrameHMargin, &celda, opcion.widget) + 1;
    QRect donde = estilo->subElementRect(QStyle::SE_ItemViewItemText, &celda, opcion.widget).adjusted(margen, 0, 0, 0);
    donde.setRight(opcion.rect.right() - margen);
    const bool elegida = celda.state.testFlag(QStyle::State_Selected);
    pintor->save();
    pintor->setClipRect(opcion.rect);
    pintor->setFont(opcion.widget != nullptr ? opcion.widget->font() : QApplication::font());
    pintor->setPen(ColorQuieto(celda, elegida));
    pintor->drawText(donde, Qt::AlignVCenter | Qt::AlignLeft, nombre);
    donde.setLeft(donde.left() + pintor->fontMetrics().horizontalAdvance(nombre + QStringLiteral("  ")));
    pintor->setFont(celda.font);
    pintor->setPen(celda.palette.color(elegida ? QPalette::HighlightedText : QPalette::Text));
    pintor->drawText(donde, Qt::AlignVCenter | Qt::AlignLeft,
                     QFontMetrics(celda.font).elidedText(valor, Qt::ElideRight, std::max(donde.width(), 0)));
    pintor->restore();
}

QSize DelegadoDeRegistros::sizeHint(const QStyleOptionViewItem& opcion, const QModelIndex& lugar) const {
    QSize tamano = QStyledItemDelegate::sizeHint(opcion, lugar);
    const QString nombre = lugar.data(ModeloDeRegistros::NombreEnCelda).toString();
    if (!nombre.isEmpty()) tamano.rwidth() += opcion.fontMetrics.horizontalAdvance(nombre + QStringLiteral("  "));
    return tamano;
}

// ---- The table alone ----

RejillaDeRegistros::RejillaDeRegistros(QWidget* padre) : QTableView(padre) {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setItemDelegate(new DelegadoDeRegistros(this));
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    verticalHeader()->setSectionsClickable(false);
    verticalHeader()->setHighlightSections(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(true);
    horizontalHeader()->setSectionsClickable(false);
    const int alto = QFontMetrics(LetraFija()).height() + 6;
    setIconSize(QSize(alto, alto) * 2 / 3);
    verticalHeader()->setMinimumSectionSize(alto);
    verticalHeader()->setDefaultSectionSize(alto);
}

int RejillaDeRegistros::FilasQueCaben() const {
    return std::max(1, viewport()->height() / std::max(1, verticalHeader()->defaultSectionSize()));
}

void RejillaDeRegistros::keyPressEvent(QKeyEvent* evento) {
    const bool conControl = evento->modifiers().testFlag(Qt::ControlModifier);
    const int pagina = FilasQueCaben();
    if (evento->matches(QKeySequence::Copy)) return emit CopiaPedida();
    switch (evento->key()) {
        case Qt::Key_Up: return emit LineasPedidas(-1);
        case Qt::Key_Down: return emit LineasPedidas(1);
        case Qt::Key_PageUp: return emit LineasPedidas(-pagina);
        case Qt::Key_PageDown: return emit LineasPedidas(pagina);
        case Qt::Key_Home:
            if (conControl) return emit ExtremoPedido(-1);
            break;
        case Qt::Key_End:
            if (conControl) return emit ExtremoPedido(1);
            break;
        default: break;
    }
    QTableView::keyPressEvent(evento);
}

void RejillaDeRegistros::wheelEvent(QWheelEvent* evento) {
    const QPoint giro = evento->angleDelta();
    if (giro.y() == 0 || evento->modifiers().testFlag(Qt::ShiftModifier)) return QTableView::wheelEvent(evento);
    constexpr int porPaso = 120;
    const int lineas = -giro.y() * lineasPorRueda / porPaso;
    if (lineas != 0) emit Rueda(lineas);
    evento->accept();
}

void RejillaDeRegistros::resizeEvent(QResizeEvent* evento) {
    QTableView::resizeEvent(evento);
    emit TamanoCambiado();
}

// ---- Table and bar ----

TablaDeRegistros::TablaDeRegistros(ModeloDeRegistros* modelo, QWidget* padre)
    : QWidget(padre), modelo_(modelo), rejilla_(new RejillaDeRegistros(this)), barra_(new QScrollBar(Qt::Vertical, this)) {
    rejilla_->setObjectName(QStringLiteral("TablaDeRegistros"));
    barra_->setObjectName(QStringLiteral("BarraDeRegistros"));
    barra_->setSingleStep(1);
    rejilla_->setModel(modelo);
    setFocusProxy(rejilla_);
    auto* const orden = new QGridLayout(this);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->setSpacing(0);
    orden->addWidget(rejilla_, 0, 0);
    orden->addWidget(barra_, 0, 1);
    connect(barra_, &QScrollBar::valueChanged, this, [this](int valor) {
        if (!colocando_) MoverA(ventana_.PrimeraDe(valor));
    });
    connect(rejilla_, &RejillaDeRegistros::LineasPedidas, this, [this](qlonglong cuantas) {
        const auto atras = static_cast<std::uint64_t>(-cuantas);
        IrA(cuantas < 0 ? actual_ - std::min(actual_, atras) : actual_ + static_cast<std::uint64_t>(cuantas));
    });
    connect(rejilla_, &RejillaDeRegistros::ExtremoPedido, this, [this](int cual) { IrA(cual < 0 ? 0 : ventana_.lineas); });
    connect(rejilla_, &RejillaDeRegistros::Rueda, this, [this](int pasos) {
        const auto cuantas = static_cast<std::uint64_t>(std::abs(pasos));
        MoverA(pasos < 0 ? primera_ - std::min(primera_, cuantas) : primera_ + cuantas);
    });
    connect(rejilla_, &RejillaDeRegistros::TamanoCambiado, this, [this] { Refrescar(); });
    connect(rejilla_, &RejillaDeRegistros::CopiaPedida, this, [this] {
        if (const auto lugar = rejilla_->currentIndex(); lugar.isValid()) {
            QApplication::clipboard()->setText(lugar.data().toString());
        }
    });
    connect(rejilla_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& lugar) {
        if (colocando_ || !lugar.isValid()) return;
        actual_ = modelo_->Primera() + static_cast<std::uint64_t>(lugar.row());
        columna_ = lugar.column();
        emit ActualCambiada();
    });
}

void TablaDeRegistros::PonerLineas(std::uint64_t lineas) {
    if (ventana_.lineas == lineas) return;
    ventana_.lineas = lineas;
    const bool llena = modelo_->rowCount() >= static_cast<int>(ventana_.visibles);
    if (llena) {
        Colocar();
    } else {
        MoverA(primera_);
    }
}

void TablaDeRegistros::Empezar() {
    primera_ = actual_ = 0;
    ventana_.lineas = 0;
    columna_ = modelo_->ConClase() ? 1 : 0;
}

void TablaDeRegistros::Refrescar() {
    ventana_.visibles = static_cast<std::uint64_t>(rejilla_->FilasQueCaben());
    MoverA(primera_);
}

void TablaDeRegistros::MoverA(std::uint64_t primera) {
    primera_ = std::min(primera, ventana_.UltimaPrimera());
    const bool antes = std::exchange(colocando_, true);
    modelo_->Mover(primera_, static_cast<int>(ventana_.visibles));
    colocando_ = antes;
    MostrarResto();
    Colocar();
}

// The bar and the current cell as the window stands.
void TablaDeRegistros::Colocar() {
    const bool antes = std::exchange(colocando_, true);
    barra_->setPageStep(static_cast<int>(ventana_.visibles));
    barra_->setRange(0, ventana_.MaximoDeBarra());
    barra_->setValue(ventana_.ValorDe(primera_));
    const int fila = FilaActual();
    columna_ = std::clamp(columna_, 0, modelo_->columnCount() - 1);
    const QModelIndex lugar = fila < 0 ? QModelIndex() : modelo_->index(fila, columna_);
    if (lugar != rejilla_->currentIndex()) {
        const int desplazada = rejilla_->horizontalScrollBar()->value();
        rejilla_->setCurrentIndex(lugar);
        rejilla_->horizontalScrollBar()->setValue(desplazada);
    }
    colocando_ = antes;
    emit ActualCambiada();
}

int TablaDeRegistros::FilaActual() const {
    if (actual_ < modelo_->Primera()) return -1;
    const auto fila = actual_ - modelo_->Primera();
    return fila < static_cast<std::uint64_t>(modelo_->rowCount()) ? static_cast<int>(fila) : -1;
}

void TablaDeRegistros::IrA(std::uint64_t linea, int columna) {
    if (ventana_.lineas == 0) return;
    actual_ = std::min(linea, ventana_.lineas - 1);
    if (columna >= 0) columna_ = columna;
    MoverA(ventana_.PrimeraPara(actual_, primera_));
    if (columna >= 0 && rejilla_->currentIndex().isValid()) rejilla_->scrollTo(rejilla_->currentIndex());
}

void TablaDeRegistros::MostrarResto() {
    const int columna = modelo_->ColumnaDeResto();
    const bool visible = columna == 0 || modelo_->HayResto();
    if (rejilla_->isColumnHidden(columna) == visible) rejilla_->setColumnHidden(columna, !visible);
}

void TablaDeRegistros::AjustarColumnas() {
    // More lines than the first look of a table that isn't shown yet.
    const bool antes = std::exchange(colocando_, true);
    modelo_->Mover(primera_, lineasDeMuestra);
    auto* const cabeza = rejilla_->horizontalHeader();
    const int letra = QFontMetrics(LetraFija()).horizontalAdvance(QLatin1Char('0'));
    for (int columna = 0; columna < modelo_->columnCount(); ++columna) {
        rejilla_->setColumnHidden(columna, false);
        int deTexto = 0;
        for (int fila = 0; fila < modelo_->rowCount(); ++fila) {
            deTexto = std::max(deTexto, rejilla_->sizeHintForIndex(modelo_->index(fila, columna)).width());
        }
        // Room for a sign in front of the value.
        int ancho = std::clamp(deTexto + 2 * letra, letra * letrasMinimas, letra * letrasMaximas) + rejilla_->iconSize().width();
        if (columna == modelo_->ColumnaDeResto()) ancho = std::max(deTexto, letra * letrasDeResto);
        rejilla_->setColumnWidth(columna, std::max(ancho, cabeza->sectionSizeHint(columna)));
    }
    colocando_ = antes;
    MoverA(primera_);
}

}  // namespace qor
