#include "app/pages/start_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <utility>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr int rutaDelDocumento = Qt::UserRole;

bool Escribe(const QKeyEvent& tecla) {
    const auto modificadores = tecla.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const QString texto = tecla.text();
    if (tecla.matches(QKeySequence::Paste)) return true;
    return modificadores == Qt::NoModifier && !texto.isEmpty() && texto.at(0).isPrint() && !texto.at(0).isSpace();
}

}  // namespace

PaginaDeInicio::PaginaDeInicio(const TextosIdioma& textos, std::vector<EjemploIncluido> ejemplos, Acciones acciones, QWidget* padre)
    : QWidget(padre),
      textos_(textos),
      ejemplos_(std::move(ejemplos)),
      acciones_(std::move(acciones)),
      nueva_(NuevoBoton("EmpezarEnBlanco", acciones_.empezar)),
      abrir_(NuevoBoton("AbrirUnDocumento", acciones_.abrir)),
      rotuloDeRecientes_(EnNegrita(Nuevo<QLabel>("RotuloDeRecientes", this))),
      rotuloDeEjemplos_(EnNegrita(Nuevo<QLabel>("RotuloDeEjemplos", this))),
      explicacion_(Nuevo<QLabel>("ComoEmpezar", this)),
      recientes_(NuevaLista("DocumentosRecientes")),
      listaDeEjemplos_(NuevaLista("EjemplosDelInicio")) {
    setObjectName(QStringLiteral("PaginaDeInicio"));
    explicacion_->setWordWrap(true);
    rotuloDeRecientes_->setBuddy(recientes_);
    rotuloDeEjemplos_->setBuddy(listaDeEjemplos_);
    // One click opens, as that of a link does.
    connect(recientes_, &QListWidget::itemClicked, this, [this](const auto* linea) { ElegirReciente(*linea); });
    connect(listaDeEjemplos_, &QListWidget::itemClicked, this, [this](const auto* linea) { ElegirEjemplo(*linea); });

    constexpr int margen = 18;
    auto* const botones = new QHBoxLayout;
    botones->setSpacing(margen / 2);
    botones->addWidget(nueva_);
    botones->addWidget(abrir_);
    botones->addWidget(explicacion_, 1);
    auto* const orden = new QGridLayout(this);
    orden->setContentsMargins(margen, margen, margen, margen);
    orden->setHorizontalSpacing(margen);
    orden->addLayout(botones, 0, 0, 1, 2);
    orden->setRowMinimumHeight(1, margen / 2);
    orden->addWidget(rotuloDeRecientes_, 2, 0);
    orden->addWidget(rotuloDeEjemplos_, 2, 1);
    orden->addWidget(recientes_, 3, 0);
    orden->addWidget(listaDeEjemplos_, 3, 1);
    orden->setColumnStretch(0, 1);
    orden->setColumnStretch(1, 1);
    const bool hayEjemplos = !ejemplos_.empty();
    rotuloDeEjemplos_->setVisible(hayEjemplos);
    listaDeEjemplos_->setVisible(hayEjemplos);
}

QPushButton* PaginaDeInicio::NuevoBoton(const char* nombre, const std::function<void()>& accion) {
    auto* const boton = Nuevo<QPushButton>(nombre, this);
    boton->setAutoDefault(true);
    boton->installEventFilter(this);
    connect(boton, &QPushButton::clicked, this, accion);
    return boton;
}

QListWidget* PaginaDeInicio::NuevaLista(const char* nombre) {
    auto* const lista = Nuevo<QListWidget>(nombre, this);
    lista->setWordWrap(true);
    lista->setSpacing(2);
    lista->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lista->setResizeMode(QListView::Adjust);
    lista->setTabKeyNavigation(false);
    lista->installEventFilter(this);
    return lista;
}

void PaginaDeInicio::MostrarRecientes(const std::vector<std::filesystem::path>& documentos) {
    recientes_->clear();
    for (const auto& documento : documentos) {
        auto* const linea =
            new QListWidgetItem(NombreQt(documento.filename()) + QLatin1Char('\n') + NombreQt(documento.parent_path()), recientes_);
        linea->setData(rutaDelDocumento, NombreQt(documento));
        linea->setToolTip(NombreQt(documento));
    }
    if (documentos.empty()) {
        auto* const ninguno = new QListWidgetItem(Palabra(textos_, palabra::TodaviaNoSeAbrioNinguno), recientes_);
        ninguno->setFlags(Qt::NoItemFlags);
    } else if (recientes_->hasFocus()) {
        recientes_->setCurrentRow(0);
    }
}

void PaginaDeInicio::RefrescarIdioma() {
    nueva_->setText(Palabra(textos_, palabra::EspecificacionNueva));
    abrir_->setText(Palabra(textos_, palabra::AbrirUnDocumento));
    explicacion_->setText(Palabra(textos_, palabra::ComoEmpezar));
    rotuloDeRecientes_->setText(Palabra(textos_, palabra::DocumentosRecientes));
    rotuloDeEjemplos_->setText(Palabra(textos_, palabra::Ejemplos));
    for (auto* const lista : {recientes_, listaDeEjemplos_}) {
        lista->setAccessibleName(lista == recientes_ ? rotuloDeRecientes_->text() : rotuloDeEjemplos_->text());
    }
    listaDeEjemplos_->clear();
    const std::string& codigo = textos_.Palabra(palabra::CodigoDelIdioma);
    for (const auto& ejemplo : ejemplos_) listaDeEjemplos_->addItem(QString::fromStdString(ejemplo.Frase(codigo)));
}

void PaginaDeInicio::TomarTeclado() {
    const bool hayRecientes = recientes_->item(0)->flags() != Qt::NoItemFlags;
    QWidget* const primero = hayRecientes ? static_cast<QWidget*>(recientes_) : nueva_;
    primero->setFocus(Qt::OtherFocusReason);
}

bool PaginaDeInicio::eventFilter(QObject* control, QEvent* evento) {
    auto* const lista = qobject_cast<QListWidget*>(control);
    // Only the list that has the keyboard shows a line as chosen.
    if (lista != nullptr && evento->type() == QEvent::FocusIn && lista->currentRow() < 0) lista->setCurrentRow(0);
    if (lista != nullptr && evento->type() == QEvent::FocusOut) lista->setCurrentRow(-1);
    if (evento->type() != QEvent::KeyPress) return QWidget::eventFilter(control, evento);
    const auto& tecla = *static_cast<QKeyEvent*>(evento);
    if (tecla.key() == Qt::Key_Escape) {
        acciones_.empezar();
    } else if (lista != nullptr && lista->currentItem() != nullptr &&
               (tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter)) {
        lista == recientes_ ? ElegirReciente(*lista->currentItem()) : ElegirEjemplo(*lista->currentItem());
    } else if (Escribe(tecla)) {
        acciones_.escribir(tecla);
    } else {
        return QWidget::eventFilter(control, evento);
    }
    return true;
}

void PaginaDeInicio::ElegirReciente(const QListWidgetItem& linea) {
    const QString ruta = linea.data(rutaDelDocumento).toString();
    if (!ruta.isEmpty()) acciones_.abrirReciente(RutaDeQt(ruta));
}

void PaginaDeInicio::ElegirEjemplo(const QListWidgetItem& linea) {
    const auto lugar = static_cast<std::size_t>(listaDeEjemplos_->row(&linea));
    acciones_.abrirEjemplo(ejemplos_.at(lugar));
}

}  // namespace qor
