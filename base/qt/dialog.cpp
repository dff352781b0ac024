#include "base/qt/dialog.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include "base/qt/read_only_box.h"
#include "base/qt/reading_order.h"
#include "base/qt/room.h"
#include "base/qt/scroll_page.h"
#include "base/qt/text.h"
#include "base/qt/words.h"

namespace qor {

Dialogo::Dialogo(const TextosIdioma& textos, const char* nombre, QWidget* padre) : QDialog(padre), textos_(textos) {
    setObjectName(QString::fromLatin1(nombre));
    setModal(true);
    setSizeGripEnabled(true);
}

void Dialogo::done(int resultado) {
    if (PuedeCerrar()) QDialog::done(resultado);
}

QString Dialogo::Rotulo(int mensaje) const { return TextoQt(textos_.Texto(mensaje)); }

QString Dialogo::Palabra(int numero) const { return qor::Palabra(textos_, numero); }

void Dialogo::PonerTitulo(const std::string& titulo) { setWindowTitle(TextoQt(titulo)); }

QPushButton* Dialogo::NuevoBoton(const char* nombre, const QString& rotulo) {
    auto* const boton = new QPushButton(rotulo, this);
    boton->setObjectName(QString::fromLatin1(nombre));
    boton->setAutoDefault(false);
    return boton;
}

QLabel* Dialogo::NuevoRotulo(const char* nombre, const QString& texto, QWidget* companero) {
    auto* const rotulo = new QLabel(texto, this);
    rotulo->setObjectName(QString::fromLatin1(nombre));
    rotulo->setBuddy(companero);
    return rotulo;
}

QLabel* Dialogo::NuevaExplicacion(const char* nombre, const QString& texto) {
    auto* const rotulo = NuevoRotulo(nombre, texto);
    rotulo->setTextFormat(Qt::PlainText);
    rotulo->setWordWrap(true);
    return rotulo;
}

QGroupBox* Dialogo::NuevoMarco(const char* nombre, const QString& titulo) {
    auto* const marco = new QGroupBox(titulo, this);
    marco->setObjectName(QString::fromLatin1(nombre));
    return marco;
}

QPushButton* Dialogo::NuevaAyuda(const char* nombre, const QString& rotulo, const AbrirAyuda& ayuda, int mensaje) {
    auto* const boton = NuevoBoton(nombre, rotulo);
    boton->setEnabled(static_cast<bool>(ayuda));
    connect(boton, &QPushButton::clicked, this, [this, ayuda, mensaje] { ayuda(mensaje, this); });
    if (findChild<QShortcut*>(QStringLiteral("TeclaDeAyuda")) == nullptr) {
        auto* const tecla = new QShortcut(QKeySequence::HelpContents, this);
        tecla->setObjectName(QStringLiteral("TeclaDeAyuda"));
        setProperty(propiedadDePagina, mensaje);
        connect(tecla, &QShortcut::activated, boton, &QPushButton::click);
    }
    return boton;
}

QLayout* Dialogo::FilaDeBotones(std::initializer_list<QPushButton*> botones, int aLaIzquierda) {
    auto* const fila = new QHBoxLayout;
    int n = 0;
    for (auto* const boton : botones) {
        if (n++ == aLaIzquierda) fila->addStretch();
        fila->addWidget(boton);
    }
    return fila;
}

int Dialogo::AnchoDeLetras(int letras) const { return fontMetrics().averageCharWidth() * letras; }

int Dialogo::AltoDeLineas(int lineas) const { return fontMetrics().lineSpacing() * lineas; }

void Dialogo::PonerTamano(int letras, int lineas) { PonerTamano({AnchoDeLetras(letras), AltoDeLineas(lineas)}); }

void Dialogo::PonerTamano(QSize pedido) { resize(pedido.expandedTo(sizeHint()).boundedTo(SitioEnPantalla(*this))); }

void Dialogo::PonerTamanoPara(const CajaDeLectura& texto) {
    const QSize entero = sizeHint() + texto.TamanoEntero() - texto.sizeHint();
    PonerTamano(entero.expandedTo({AnchoDeLetras(60), AltoDeLineas(16)}));
}

void Dialogo::setVisible(bool visible) {
    if (visible && !isVisible()) {
        CaberEnPantalla();
        OrdenarTabulador(*this);
        NombrarPorRotulos(*this);
    }
    QDialog::setVisible(visible);
}

void Dialogo::CaberEnPantalla() {
    QLayout* const orden = layout();
    if (orden == nullptr) return;
    const QSize sitio = SitioEnPantalla(*this);
    for (auto* const control : findChildren<QWidget*>()) control->ensurePolished();
    const QSize menor = orden->totalMinimumSize();
    if (menor == menor.boundedTo(sitio)) return;
    QLayoutItem* const ultimo = orden->itemAt(orden->count() - 1);
    QLayout* const botones = ultimo->layout();
    if (botones != nullptr) orden->removeItem(ultimo);
    auto* const contenido = new QWidget(this);
    contenido->setLayout(orden);
    auto* const plegado = new QVBoxLayout(this);
    plegado->addWidget(new PaginaDesplazable(contenido), 1);
    if (botones != nullptr) plegado->addLayout(botones);
    resize(size().boundedTo(sitio));
}

bool EnfocarEnDialogo(const std::string& control) {
    auto* const dialogo = QApplication::activeModalWidget();
    if (dialogo == nullptr) return false;
    auto* const hijo = dialogo->findChild<QWidget*>(QString::fromStdString(control));
    if (hijo == nullptr) return false;
    hijo->setFocus();
    return true;
}

}  // namespace qor
