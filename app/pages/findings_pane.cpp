#include "app/pages/findings_pane.h"

#include <QApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "base/qt/text.h"
#include "base/qt/words.h"

namespace qor {

namespace {

constexpr int lineasPropias = 5;  // of the list, until a user gives the pane another height
constexpr int lineasMinimas = 2;

bool Iguales(const std::vector<Hallazgo>& unos, const std::vector<Hallazgo>& otros) {
    return std::equal(unos.begin(), unos.end(), otros.begin(), otros.end(), [](const Hallazgo& a, const Hallazgo& b) {
        return a.codigo == b.codigo && a.gravedad == b.gravedad && a.lugar == b.lugar && a.texto == b.texto;
    });
}

// The row of a finding in another list: the same kind at the same place, else the nearest one.
int FilaDe(const Hallazgo& buscado, int antes, const std::vector<Hallazgo>& lista) {
    const auto hallado = std::find_if(lista.begin(), lista.end(),
                                      [&](const Hallazgo& h) { return h.codigo == buscado.codigo && h.lugar == buscado.lugar; });
    if (hallado != lista.end()) return static_cast<int>(hallado - lista.begin());
    return std::min(antes, static_cast<int>(lista.size()) - 1);
}

}  // namespace

// ---- The list ----

ListaDeHallazgos::ListaDeHallazgos(QWidget* padre) : QTreeView(padre) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(true);
}

void ListaDeHallazgos::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        emit Abandonada();
        return;
    }
    QTreeView::keyPressEvent(evento);
}

// ---- The pane ----

PanelDeHallazgos::PanelDeHallazgos(const TextosIdioma& textos, QWidget* padre)
    : PanelQueSeCierra("TituloDeHallazgos", "CerrarHallazgos", padre),
      textos_(textos),
      modelo_(new ModeloDeHallazgos(textos, this)),
      lista_(Nuevo<ListaDeHallazgos>("ListaDeHallazgos", this)),
      elegido_(EnVariasLineas(Nuevo<QLabel>("TextoDelHallazgo", this))) {
    setObjectName(QStringLiteral("PanelDeHallazgos"));
    lista_->setModel(modelo_);
    lista_->setMinimumHeight(AltoDeLista(1));
    elegido_->setTextFormat(Qt::PlainText);
    elegido_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    elegido_->hide();
    PonerContenido(lista_)->addWidget(elegido_);

    connect(lista_, &QTreeView::activated, this, [this](const QModelIndex& lugar) { emit Activado(lugar.row()); });
    connect(lista_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { MostrarElegido(); });
    connect(lista_, &ListaDeHallazgos::Abandonada, this, &PanelDeHallazgos::DevolverFoco);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* deja, QWidget* recibe) {
        if (deja != nullptr && recibe != nullptr && isAncestorOf(recibe) && !isAncestorOf(deja)) antes_ = deja;
    });
    RefrescarIdioma();
}

void PanelDeHallazgos::Mostrar(const VigiaDeHallazgos& vigia) {
    cuenta_ = ContarHallazgos(vigia.Lista());
    completo_ = vigia.Completo();
    PonerCuenta();
    if (Iguales(modelo_->Lista(), vigia.Lista())) return;
    const int fila = Elegido();
    const int primera = lista_->verticalScrollBar()->value();
    const int nueva = fila < 0 ? -1 : FilaDe(modelo_->Lista().at(static_cast<std::size_t>(fila)), fila, vigia.Lista());
    modelo_->Poner(vigia.Lista());
    if (nueva >= 0) lista_->setCurrentIndex(modelo_->index(nueva, 0));
    lista_->verticalScrollBar()->setValue(primera);
    MostrarElegido();
}

void PanelDeHallazgos::MostrarElegido() {
    const int fila = Elegido();
    elegido_->setText(fila < 0 ? QString() : TextoQt(modelo_->Lista().at(static_cast<std::size_t>(fila)).texto));
    elegido_->setVisible(fila >= 0);
}

void PanelDeHallazgos::RefrescarIdioma() {
    Nombrar(Palabra(textos_, palabra::Hallazgos), textos_);
    emit modelo_->headerDataChanged(Qt::Horizontal, 0, ModeloDeHallazgos::CantidadDeColumnas - 1);
    PonerCuenta();
    AjustarColumnas();
}

void PanelDeHallazgos::PonerCuenta() {
    QStringList partes;
    const auto agregar = [&](int cuantos, int uno, int varios) {
        if (cuantos > 0) partes << Palabra(textos_, cuantos == 1 ? uno : varios).arg(cuantos);
    };
    agregar(cuenta_.errores, palabra::CuentaDeUnError, palabra::CuentaDeErrores);
    agregar(cuenta_.avisos, palabra::CuentaDeUnAviso, palabra::CuentaDeAvisos);
    agregar(cuenta_.notas, palabra::CuentaDeUnaNota, palabra::CuentaDeNotas);
    if (!completo_) partes << Palabra(textos_, palabra::PuedeHaberMasDetras);
    PonerTitulo(partes.isEmpty() ? QString()
                                 : Palabra(textos_, palabra::Hallazgos) + QStringLiteral(": ") + partes.join(QStringLiteral(", ")));
}

// Wide enough for what mostly stands there; a user can change it.
void PanelDeHallazgos::AjustarColumnas() {
    const auto ancho = [this](const QString& texto) { return lista_->fontMetrics().horizontalAdvance(texto); };
    const int borde = ancho(QStringLiteral("mm"));
    int severidad = ancho(Palabra(textos_, palabra::Gravedad));
    for (const auto gravedad : {Gravedad::Error, Gravedad::Aviso, Gravedad::Nota}) {
        severidad = std::max(severidad, ancho(PalabraDe(textos_, gravedad)) + lista_->fontMetrics().height());
    }
    lista_->setColumnWidth(ModeloDeHallazgos::Severidad, severidad + borde);
    lista_->setColumnWidth(ModeloDeHallazgos::Codigo,
                           std::max(ancho(Palabra(textos_, palabra::Codigo)), ancho(QStringLiteral("Q000"))) + borde);
    lista_->setColumnWidth(ModeloDeHallazgos::Sitio, ancho(LugarEnPalabras(textos_, Lugar::EnPrograma(ultimaFila, 0))) + borde);
}

int PanelDeHallazgos::Elegido() const {
    const QModelIndex lugar = lista_->currentIndex();
    return lugar.isValid() ? lugar.row() : -1;
}

void PanelDeHallazgos::Elegir(int hallazgo) {
    const QModelIndex lugar = modelo_->index(hallazgo, 0);
    lista_->setCurrentIndex(lugar);
    lista_->scrollTo(lugar);
}

void PanelDeHallazgos::DevolverFoco() {
    if (antes_ != nullptr && antes_->isVisible()) {
        antes_->setFocus(Qt::OtherFocusReason);
    } else {
        focusPreviousChild();
    }
}

int PanelDeHallazgos::AltoDeLista(int lineas) const {
    constexpr int bordeDeLinea = 4;
    return lista_->header()->sizeHint().height() + lineas * (fontMetrics().height() + bordeDeLinea) + 2 * lista_->frameWidth();
}

int PanelDeHallazgos::AltoCon(int lineas) const {
    const auto margenes = layout()->contentsMargins();
    return margenes.top() + AltoDeLaCabeza() + layout()->spacing() + AltoDeLista(lineas) + margenes.bottom();
}

QSize PanelDeHallazgos::sizeHint() const { return {QWidget::sizeHint().width(), AltoCon(lineasPropias)}; }

QSize PanelDeHallazgos::minimumSizeHint() const { return {0, AltoCon(lineasMinimas)}; }

}  // namespace qor
