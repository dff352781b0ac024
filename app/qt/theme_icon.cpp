#include "app/qt/theme_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

// The drawings lie in a static library, whose resources are asked for by name; this can't be done inside a namespace.
static void TomarDibujos() { Q_INIT_RESOURCE(icons); }

namespace qor {

namespace {

// Drawings use this colour for their lines.
constexpr const char* colorDeLineas = "#000000";

class MotorDeIcono : public QIconEngine {
public:
    explicit MotorDeIcono(QByteArray dibujo) : dibujo_(std::move(dibujo)) {}

    void paint(QPainter* pintor, const QRect& marco, QIcon::Mode modo, QIcon::State /*estado*/) override {
        const auto grupo = modo == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor color = QGuiApplication::palette().color(grupo, QPalette::WindowText);
        QByteArray coloreado = dibujo_;
        coloreado.replace(colorDeLineas, color.name().toLatin1());
        if (modo == QIcon::Disabled) pintor->setOpacity(0.45);
        QSvgRenderer(coloreado).render(pintor, marco);
        if (modo == QIcon::Disabled) pintor->setOpacity(1);
    }

    QPixmap pixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State estado) override {
        QPixmap imagen(tamano);
        imagen.fill(Qt::transparent);
        QPainter pintor(&imagen);
        paint(&pintor, QRect(QPoint(0, 0), tamano), modo, estado);
        return imagen;
    }

    QIconEngine* clone() const override { return new MotorDeIcono(dibujo_); }

private:
    QByteArray dibujo_;
};

}  // namespace

QIcon IconoDeTema(const char* nombre) {
    TomarDibujos();
    QFile archivo(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(nombre)));
    if (!archivo.open(QIODevice::ReadOnly)) return {};
    return QIcon(new MotorDeIcono(archivo.readAll()));
}

}  // namespace qor
