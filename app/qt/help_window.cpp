#include "app/qt/help_window.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTextBrowser>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "app/qt/theme_icon.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "editor/help_pages.h"

namespace qor {

namespace {

constexpr const char* paginasInglesas = "help/en/";

QToolButton* NuevoBoton(QWidget* padre, const char* nombre, const char* icono) {
    auto* const boton = new QToolButton(padre);
    boton->setObjectName(QString::fromLatin1(nombre));
    boton->setIcon(IconoDeTema(icono));
    boton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    boton->setAutoRaise(true);
    return boton;
}

}  // namespace

VentanaDeAyuda::VentanaDeAyuda(const TextosIdioma& textos, std::filesystem::path directorioDeDatos, QWidget* padre)
    : QWidget(padre, Qt::Window), textos_(textos), directorioDeDatos_(std::move(directorioDeDatos)) {
    setObjectName(QStringLiteral("VentanaDeAyuda"));
    navegador_ = new QTextBrowser(this);
    navegador_->setObjectName(QStringLiteral("Pagina"));
    navegador_->setOpenExternalLinks(true);
    atras_ = NuevoBoton(this, "Atras", "back");
    adelante_ = NuevoBoton(this, "Adelante", "forward");
    contenido_ = NuevoBoton(this, "ContenidoDeAyuda", "contents");
    cerrar_ = NuevoBoton(this, "CerrarAyuda", "close");

    atras_->setEnabled(false);
    adelante_->setEnabled(false);
    connect(navegador_, &QTextBrowser::backwardAvailable, atras_, &QWidget::setEnabled);
    connect(navegador_, &QTextBrowser::forwardAvailable, adelante_, &QWidget::setEnabled);
    connect(atras_, &QToolButton::clicked, navegador_, &QTextBrowser::backward);
    connect(adelante_, &QToolButton::clicked, navegador_, &QTextBrowser::forward);
    connect(contenido_, &QToolButton::clicked, this, [this] { MostrarPagina(paginaDeContenido); });
    connect(cerrar_, &QToolButton::clicked, this, &QWidget::close);

    auto* const botones = new QHBoxLayout;
    for (auto* const boton : {atras_, adelante_, contenido_}) botones->addWidget(boton);
    botones->addStretch();
    botones->addWidget(cerrar_);
    auto* const orden = new QVBoxLayout(this);
    orden->addLayout(botones);
    orden->addWidget(navegador_);
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 40);
    RefrescarIdioma();
}

void VentanaDeAyuda::RefrescarIdioma() {
    setWindowTitle(Palabra(textos_, palabra::Ayuda) + QStringLiteral(" - Qor Generator"));
    atras_->setText(Palabra(textos_, palabra::Atras));
    adelante_->setText(Palabra(textos_, palabra::Adelante));
    contenido_->setText(Palabra(textos_, palabra::Contenido));
    cerrar_->setText(Palabra(textos_, palabra::Cerrar));
}

void VentanaDeAyuda::MostrarPagina(int mensaje) {
    const QString nombre = TextoQt(textos_.Texto(mensaje));
    if (const QUrl pagina = DondeEste(QUrl::fromLocalFile(EnDatos(nombre))); !pagina.isEmpty()) {
        navegador_->setSource(pagina);
    } else {
        navegador_->setPlainText(Palabra(textos_, palabra::EstaPaginaNoEstaInstalada) + ' ' + nombre);
    }
    Traer();
}

void VentanaDeAyuda::MostrarPagina(std::string_view nombre) {
    const QString contenido = EnDatos(TextoQt(textos_.Texto(paginaDeContenido)));
    const QUrl pagina = DondeEste(QUrl::fromLocalFile(contenido).resolved(QUrl(TextoQt(nombre))));
    if (pagina.isEmpty()) return MostrarPagina(paginaDeContenido);
    navegador_->setSource(pagina);
    Traer();
}

QString VentanaDeAyuda::EnDatos(const QString& nombre) const {
    return QString::fromStdString(directorioDeDatos_.string()) + QLatin1Char('/') + nombre;
}

// A page, or the English one of its name where a language lacks it. Empty where there is none either.
QUrl VentanaDeAyuda::DondeEste(const QUrl& pagina) const {
    if (QFileInfo(pagina.toLocalFile()).isFile()) return pagina;
    QUrl inglesa = QUrl::fromLocalFile(EnDatos(QLatin1String(paginasInglesas) + pagina.fileName()));
    inglesa.setFragment(pagina.fragment());
    return QFileInfo(inglesa.toLocalFile()).isFile() ? inglesa : QUrl();
}

// In front of all windows.
void VentanaDeAyuda::Traer() {
    show();
    raise();
    activateWindow();
    navegador_->setFocus();
}

void VentanaDeAyuda::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(evento);
}

}  // namespace qor
