#include "sap/FormImport.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/qt/colours.h"
#include "base/qt/text.h"

namespace qor {

namespace {

constexpr int columnas = 7;
constexpr int columnaDeIdentificador = 6;
// The first widths in letters; the first column is a margin.
constexpr std::array<int, columnas> letrasDeColumna = {2, 9, 18, 18, 14, 12, 28};

}  // namespace

FormImport::FormImport(FormularioImport& formulario, SesionSAP& sesion, const TextosIdioma& textos, Vista& vista, QWidget* padre)
    : Dialogo(textos, "FormImport", padre), formulario_(formulario), sesion_(sesion), vista_(vista) {
    formulario_.ArchivoImportado.clear();
    setWindowTitle(Rotulo(formulario_.Titulo()));
    CrearGrilla();
    auto* const ButtonCancel = NuevoBoton("ButtonCancel", Rotulo(187));
    connect(ButtonCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(NuevaExplicacion("LabelInstructions", Rotulo(245)));
    orden->addWidget(Grilla_, 1);
    orden->addLayout(FilaDeBotones({ButtonCancel}));
    PonerTamano(112, 28);
    Grilla_->setFocus();
}

void FormImport::CrearGrilla() {
    Grilla_ = new QTableWidget(0, columnas, this);
    Grilla_->setObjectName(QStringLiteral("Grilla"));
    Grilla_->setAccessibleName(windowTitle());
    QStringList titulos = {QString()};
    for (const int numero : titulosGrilla) titulos << Rotulo(numero);
    Grilla_->setHorizontalHeaderLabels(titulos);
    Grilla_->verticalHeader()->hide();
    Grilla_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grilla_->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grilla_->setSelectionMode(QAbstractItemView::SingleSelection);
    Grilla_->setTabKeyNavigation(false);
    Grilla_->setWordWrap(false);
    Grilla_->horizontalHeader()->setStretchLastSection(true);
    Grilla_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (int c = 0; c < columnas; ++c) {
        const int titulo = fontMetrics().horizontalAdvance(titulos.at(c)) + AnchoDeLetras(3);
        Grilla_->setColumnWidth(c, std::max(c == 0 ? 0 : titulo, AnchoDeLetras(letrasDeColumna[static_cast<std::size_t>(c)])));
    }
    Grilla_->installEventFilter(this);
    Grilla_->viewport()->installEventFilter(this);
    connect(Grilla_, &QTableWidget::cellDoubleClicked, this, &FormImport::Activar);
}

void FormImport::showEvent(QShowEvent* evento) {
    Dialogo::showEvent(evento);
    if (!std::exchange(llena_, true)) QTimer::singleShot(0, this, &FormImport::Llenar);
}

void FormImport::Llenar() {
    if (!LlenarGrilla(formulario_, sesion_, Textos(), vista_)) return reject();
    const QColor color = ColorLegible(Tono::Nota);
    Grilla_->setRowCount(static_cast<int>(formulario_.Grilla.size()));
    for (int f = 0; f < Grilla_->rowCount(); ++f) {
        for (int c = 0; c < columnas; ++c) {
            auto* const celda =
                new QTableWidgetItem(TextoQt(formulario_.Grilla[static_cast<std::size_t>(f)][static_cast<std::size_t>(c)]));
            celda->setForeground(color);
            Grilla_->setItem(f, c, celda);
        }
    }
    if (Grilla_->rowCount() > 0) Grilla_->setCurrentCell(0, 1);
}

void FormImport::Activar(int fila) {
    const bool existe = fila >= 0 && fila < static_cast<int>(formulario_.Grilla.size());
    const std::string qid = existe ? formulario_.Grilla[static_cast<std::size_t>(fila)][columnaDeIdentificador] : std::string();
    ActivarFila(formulario_, qid, sesion_, vista_);
    formulario_.ArchivoImportado.empty() ? reject() : accept();
}

bool FormImport::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == Grilla_ && evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            Activar(Grilla_->currentRow());
            return true;
        }
    }
    // A list without entries has nothing to take, so its double click closes.
    if (objeto == Grilla_->viewport() && evento->type() == QEvent::MouseButtonDblClick && Grilla_->rowCount() == 0) {
        Activar(-1);
        return true;
    }
    return Dialogo::eventFilter(objeto, evento);
}

}  // namespace qor
