#include "input/qt/line_ruler.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "base/qt/fixed_font.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "input/qt/tints.h"

namespace qor {

namespace {

constexpr int margen = 6;
constexpr double alcanceEnPuntos = 6;  // of the mouse around a border
constexpr int saltoConMayusculas = 10;
constexpr int margenAlDesplazar = 4;  // columns that stay in sight behind a border

}  // namespace

ReglaDeLinea::ReglaDeLinea(const TextosIdioma& textos, QWidget* padre) : QAbstractScrollArea(padre), textos_(textos) {
    setFont(LetraFija());
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setMouseTracking(true);
    setAccessibleName(Palabra(textos_, palabra::ReglaSobreLaLinea));
}

void ReglaDeLinea::Mostrar(std::string_view linea, const ClaseDeRegistro* clase, bool porTabuladores, TramoDeLinea tramo) {
    // What is asked for while a border is dragged is the same line again.
    if (arrastre_ && linea == linea_) return;
    const bool otroTramo = !(tramo == tramo_);
    linea_ = linea;
    hayClase_ = clase != nullptr;
    clase_ = hayClase_ ? *clase : ClaseDeRegistro{};
    porTabuladores_ = porTabuladores;
    tramo_ = tramo;
    arrastre_.reset();
    elegido_ = ConBordes() ? std::min(elegido_, static_cast<int>(clase_.campos.size()) - 1) : -1;
    AjustarBarra();
    if (otroTramo && !hasFocus()) {
        AsegurarVisible(tramo_.desde + tramo_.largo);
        AsegurarVisible(tramo_.desde);
    }
    Describir();
    viewport()->update();
}

void ReglaDeLinea::PermitirMarcas(bool permitidas) {
    if (conMarcas_ == permitidas) return;
    conMarcas_ = permitidas;
    marcas_.Quitar();
    cursor_ = 0;
    Describir();
    viewport()->update();
}

// ---- Places ----

int ReglaDeLinea::Letra() const { return std::max(1, fontMetrics().horizontalAdvance(QLatin1Char('0'))); }

int ReglaDeLinea::XDe(std::size_t columna) const {
    return margen + (static_cast<int>(columna) - horizontalScrollBar()->value()) * Letra();
}

double ReglaDeLinea::ColumnaEn(double x) const { return (x - margen) / Letra() + horizontalScrollBar()->value(); }

int ReglaDeLinea::AltoDeNombres() const { return QFontMetrics(QApplication::font(this)).height() + 2; }

QSize ReglaDeLinea::minimumSizeHint() const {
    const int alto = AltoDeNombres() + 2 * fontMetrics().height() + 10 + 2 * frameWidth();
    return {Letra() * 20, alto + horizontalScrollBar()->sizeHint().height()};
}

QSize ReglaDeLinea::sizeHint() const { return minimumSizeHint(); }

void ReglaDeLinea::AjustarBarra() {
    const int columnas = std::max(1, (viewport()->width() - 2 * margen) / Letra());
    const auto largo = static_cast<int>(std::max(linea_.size(), ConBordes() ? clase_.largo : 0)) + margenAlDesplazar;
    horizontalScrollBar()->setSingleStep(1);
    horizontalScrollBar()->setPageStep(columnas);
    horizontalScrollBar()->setRange(0, std::max(0, largo - columnas));
}

void ReglaDeLinea::AsegurarVisible(std::size_t columna) {
    auto* const barra = horizontalScrollBar();
    const auto c = static_cast<int>(columna);
    if (c > barra->value() + barra->pageStep() - margenAlDesplazar) barra->setValue(c - barra->pageStep() + margenAlDesplazar);
    if (c < barra->value()) barra->setValue(c);
}

ClaseDeRegistro ReglaDeLinea::ClaseVista() const {
    ClaseDeRegistro vista = clase_;
    if (!arrastre_) return vista;
    const auto campo = static_cast<std::size_t>(arrastre_->campo);
    const std::size_t antes = vista.campos[campo].ancho;
    vista.campos[campo].ancho = arrastre_->ancho;
    for (std::size_t i = campo + 1; i < vista.campos.size(); ++i) vista.campos[i].columna += arrastre_->ancho - antes;
    vista.largo += arrastre_->ancho - antes;
    return vista;
}

// ---- What is seen ----

void ReglaDeLinea::PintarNombres(QPainter& pintor, const ClaseDeRegistro& clase) const {
    const QFont letra = QApplication::font(this);
    const QFontMetrics medidas(letra);
    pintor.setFont(letra);
    pintor.setPen(palette().color(QPalette::Text));
    for (const auto& campo : clase.campos) {
        const int desde = XDe(campo.columna);
        const int ancho = XDe(BordeDe(campo)) - desde - 4;
        if (ancho < medidas.averageCharWidth() * 2 || desde > viewport()->width() || desde + ancho < 0) continue;
        pintor.drawText(QRect(desde + 3, 0, ancho, AltoDeNombres()), Qt::AlignLeft | Qt::AlignVCenter,
                        medidas.elidedText(TextoQt(campo.nombre), Qt::ElideRight, ancho));
    }
    pintor.setFont(font());
}

// Byte by byte, so that each stands in its column whatever font its character comes from.
void ReglaDeLinea::PintarLinea(QPainter& pintor) const {
    const auto primera = static_cast<std::size_t>(horizontalScrollBar()->value());
    const auto columnas = static_cast<std::size_t>(viewport()->width() / Letra() + 2);
    const QString escala = QString::fromStdString(EscalaDe(primera + columnas + 10));
    const int base = AltoDeNombres() + fontMetrics().ascent();
    const int alto = fontMetrics().height();
    const QColor quieto = Mezcla(palette().color(QPalette::Base), palette().color(QPalette::Text), 60);
    for (std::size_t i = primera; i < primera + columnas; ++i) {
        const int x = XDe(i);
        pintor.setPen(quieto);
        pintor.drawText(x, base, QString(escala[static_cast<qsizetype>(i)]));
        if (i >= linea_.size()) continue;
        const QString signo = QString::fromStdString(TextoVisible(std::string_view(linea_).substr(i, 1)));
        pintor.setPen(palette().color(QPalette::Text));
        pintor.drawText(QRect(x - Letra(), AltoDeNombres() + alto + 4, 3 * Letra(), alto), Qt::AlignHCenter, signo);
    }
}

void ReglaDeLinea::PintarBordes(QPainter& pintor, const ClaseDeRegistro& clase) const {
    const int alto = viewport()->height();
    const QColor linea = Mezcla(palette().color(QPalette::Base), palette().color(QPalette::Text), 55);
    const auto trazar = [&](std::size_t columna, bool elegido) {
        const int x = XDe(columna);
        pintor.setPen(QPen(elegido ? palette().color(QPalette::Highlight) : linea, elegido ? 3 : 1));
        pintor.drawLine(x, 0, x, alto);
        // A grip at the foot, so that a border is seen to be one.
        const int mitad = elegido ? 5 : 4;
        pintor.setBrush(elegido ? palette().color(QPalette::Highlight) : linea);
        pintor.setPen(Qt::NoPen);
        pintor.drawPolygon(QPolygon({QPoint(x - mitad, alto), QPoint(x + mitad + 1, alto), QPoint(x, alto - mitad - 2)}));
    };
    if (!clase.identificador.empty()) {
        pintor.setPen(QPen(linea, 1, Qt::DotLine));
        pintor.drawLine(XDe(clase.identificador.size()), 0, XDe(clase.identificador.size()), alto);
    }
    const int elegido = arrastre_ ? arrastre_->campo : hasFocus() ? elegido_ : -1;
    for (std::size_t i = 0; i < clase.campos.size(); ++i) {
        if (static_cast<int>(i) != elegido) trazar(BordeDe(clase.campos[i]), false);
    }
    if (elegido >= 0) trazar(BordeDe(clase.campos[static_cast<std::size_t>(elegido)]), true);
}

void ReglaDeLinea::PintarMarcas(QPainter& pintor) const {
    const int alto = viewport()->height();
    if (hasFocus()) {
        // The cursor ends above the marks, so that it hides none.
        const int x = XDe(cursor_);
        pintor.setBrush(palette().color(QPalette::Highlight));
        pintor.setPen(Qt::NoPen);
        const int pie = AltoDeNombres();
        pintor.drawPolygon(QPolygon({QPoint(x - 6, pie / 3), QPoint(x + 7, pie / 3), QPoint(x, pie)}));
        pintor.setPen(palette().color(QPalette::Highlight));
        pintor.drawLine(x, pie, x, alto);
    }
    pintor.setPen(QPen(palette().color(QPalette::Text), 2));
    for (const auto columna : marcas_.Columnas()) pintor.drawLine(XDe(columna), AltoDeNombres(), XDe(columna), alto);
}

void ReglaDeLinea::paintEvent(QPaintEvent* /*evento*/) {
    QPainter pintor(viewport());
    const ClaseDeRegistro clase = ClaseVista();
    TramoDeLinea tramo = tramo_;
    if (arrastre_) {
        const auto& campo = clase.campos[static_cast<std::size_t>(arrastre_->campo)];
        tramo = {campo.columna, campo.ancho};
    }
    if (tramo.largo > 0 && hayClase_ && !conMarcas_) {
        const QColor fondo = Mezcla(palette().color(QPalette::Base), palette().color(QPalette::Highlight), 30);
        pintor.fillRect(XDe(tramo.desde), 0, XDe(tramo.desde + tramo.largo) - XDe(tramo.desde), viewport()->height(), fondo);
    }
    if (ConBordes()) PintarNombres(pintor, clase);
    PintarLinea(pintor);
    if (ConBordes()) PintarBordes(pintor, clase);
    if (conMarcas_) PintarMarcas(pintor);
}

void ReglaDeLinea::resizeEvent(QResizeEvent* evento) {
    QAbstractScrollArea::resizeEvent(evento);
    AjustarBarra();
}

void ReglaDeLinea::changeEvent(QEvent* evento) {
    QAbstractScrollArea::changeEvent(evento);
    if (evento->type() == QEvent::FontChange) AjustarBarra();
}

// ---- The mouse ----

void ReglaDeLinea::Senalar(const QPoint& lugar) {
    if (!arrastre_) return;
    const auto& campo = clase_.campos[static_cast<std::size_t>(arrastre_->campo)];
    QToolTip::showText(viewport()->mapToGlobal(lugar + QPoint(12, -2 * fontMetrics().height())),
                       Palabra(textos_, palabra::CampoConAncho).arg(TextoQt(campo.nombre)).arg(arrastre_->ancho), viewport());
}

void ReglaDeLinea::mousePressEvent(QMouseEvent* evento) {
    if (evento->button() != Qt::LeftButton) return;
    const double columna = ColumnaEn(evento->position().x());
    if (conMarcas_) {
        cursor_ = static_cast<std::size_t>(std::max(0.0, std::round(columna)));
        marcas_.Alternar(cursor_);
        Describir();
        viewport()->update();
        emit MarcasCambiadas();
        return;
    }
    const int borde = ConBordes() ? BordeEn(clase_, columna, alcanceEnPuntos / Letra()) : -1;
    if (borde >= 0) {
        Elegir(borde);
        arrastre_ = Arrastre{borde, clase_.campos[static_cast<std::size_t>(borde)].ancho};
        viewport()->update();
        return;
    }
    if (const int campo = CampoEn(columna); campo >= 0) emit CampoTocado(campo);
}

// The field that has a place between its borders; -1 for none.
int ReglaDeLinea::CampoEn(double columna) const {
    if (!ConBordes()) return -1;
    const auto lugar = std::find_if(clase_.campos.begin(), clase_.campos.end(), [columna](const auto& campo) {
        return columna >= static_cast<double>(campo.columna) && columna < static_cast<double>(BordeDe(campo));
    });
    return lugar == clase_.campos.end() ? -1 : static_cast<int>(lugar - clase_.campos.begin());
}

QString ReglaDeLinea::DescripcionDe(const CampoDeRegistro& campo) const {
    return Palabra(textos_, palabra::CampoDeColumnaAColumna).arg(TextoQt(campo.nombre)).arg(campo.columna + 1).arg(BordeDe(campo));
}

void ReglaDeLinea::mouseMoveEvent(QMouseEvent* evento) {
    const double columna = ColumnaEn(evento->position().x());
    if (!arrastre_) {
        const bool borde = ConBordes() && BordeEn(clase_, columna, alcanceEnPuntos / Letra()) >= 0;
        const int campo = CampoEn(columna);
        viewport()->setToolTip(campo < 0 ? QString() : DescripcionDe(clase_.campos[static_cast<std::size_t>(campo)]));
        viewport()->setCursor(borde ? Qt::SplitHCursor : conMarcas_ ? Qt::IBeamCursor : Qt::ArrowCursor);
        return;
    }
    const auto& campo = clase_.campos[static_cast<std::size_t>(arrastre_->campo)];
    arrastre_->ancho = AnchoHasta(campo, std::lround(columna));
    const auto borde = campo.columna + arrastre_->ancho;
    horizontalScrollBar()->setMaximum(std::max(horizontalScrollBar()->maximum(),
                                               static_cast<int>(borde) - horizontalScrollBar()->pageStep() + margenAlDesplazar));
    AsegurarVisible(borde);
    Senalar(evento->position().toPoint());
    viewport()->update();
}

void ReglaDeLinea::mouseReleaseEvent(QMouseEvent* evento) {
    if (evento->button() != Qt::LeftButton || !arrastre_) return;
    const Arrastre hecho = *arrastre_;
    arrastre_.reset();
    QToolTip::hideText();
    viewport()->update();
    if (hecho.ancho != clase_.campos[static_cast<std::size_t>(hecho.campo)].ancho) emit AnchoPedido(hecho.campo, hecho.ancho);
}

// ---- The keyboard ----

void ReglaDeLinea::Elegir(int campo) {
    elegido_ = campo;
    AsegurarVisible(BordeDe(clase_.campos[static_cast<std::size_t>(campo)]));
    Describir();
    viewport()->update();
    emit CampoTocado(campo);
}

void ReglaDeLinea::MoverCursor(std::ptrdiff_t columna) {
    const auto ultima = static_cast<std::ptrdiff_t>(std::max<std::size_t>(linea_.size(), 1));
    cursor_ = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(columna, 0, ultima));
    AsegurarVisible(cursor_);
    Describir();
    viewport()->update();
}

bool ReglaDeLinea::TeclaDeBorde(QKeyEvent* evento) {
    const auto ultimo = static_cast<int>(clase_.campos.size()) - 1;
    const bool conControl = evento->modifiers().testFlag(Qt::ControlModifier);
    const int sentido = evento->key() == Qt::Key_Left ? -1 : 1;
    switch (evento->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
            if (!conControl) {
                Elegir(std::clamp(elegido_ + sentido, 0, ultimo));
            } else if (elegido_ >= 0) {
                const auto& campo = clase_.campos[static_cast<std::size_t>(elegido_)];
                const int paso = evento->modifiers().testFlag(Qt::ShiftModifier) ? saltoConMayusculas : 1;
                const auto ancho = AnchoMas(campo, sentido * paso);
                if (ancho != campo.ancho) emit AnchoPedido(elegido_, ancho);
            }
            return true;
        case Qt::Key_Home: return Elegir(0), true;
        case Qt::Key_End: return Elegir(ultimo), true;
        default: return false;
    }
}

bool ReglaDeLinea::TeclaDeMarca(QKeyEvent* evento) {
    const auto aqui = static_cast<std::ptrdiff_t>(cursor_);
    const int paso = evento->modifiers().testFlag(Qt::ControlModifier) ? saltoConMayusculas : 1;
    switch (evento->key()) {
        case Qt::Key_Left: return MoverCursor(aqui - paso), true;
        case Qt::Key_Right: return MoverCursor(aqui + paso), true;
        case Qt::Key_Home: return MoverCursor(0), true;
        case Qt::Key_End: return MoverCursor(static_cast<std::ptrdiff_t>(linea_.size())), true;
        case Qt::Key_Space:
            marcas_.Alternar(cursor_);
            Describir();
            viewport()->update();
            emit MarcasCambiadas();
            return true;
        default: return false;
    }
}

void ReglaDeLinea::keyPressEvent(QKeyEvent* evento) {
    if (arrastre_ && evento->key() == Qt::Key_Escape) {
        arrastre_.reset();
        QToolTip::hideText();
        viewport()->update();
        return;
    }
    if (ConBordes() && TeclaDeBorde(evento)) return;
    if (conMarcas_ && TeclaDeMarca(evento)) return;
    QAbstractScrollArea::keyPressEvent(evento);
}

void ReglaDeLinea::focusInEvent(QFocusEvent* evento) {
    QAbstractScrollArea::focusInEvent(evento);
    if (ConBordes() && elegido_ < 0) {
        // That of the current field.
        int campo = 0;
        for (std::size_t i = 0; i < clase_.campos.size(); ++i) {
            if (clase_.campos[i].columna <= tramo_.desde) campo = static_cast<int>(i);
        }
        Elegir(campo);
    }
    viewport()->update();
}

void ReglaDeLinea::focusOutEvent(QFocusEvent* evento) {
    QAbstractScrollArea::focusOutEvent(evento);
    viewport()->update();
}

// What a screen reader says of the border, or of the cursor.
void ReglaDeLinea::Describir() {
    QString texto;
    if (conMarcas_) {
        const auto& columnas = marcas_.Columnas();
        const bool marcada = std::find(columnas.begin(), columnas.end(), cursor_) != columnas.end();
        texto = Palabra(textos_, marcada ? palabra::ColumnaMarcada : palabra::ColumnaNumero).arg(cursor_);
    } else if (ConBordes() && elegido_ >= 0) {
        const auto& campo = clase_.campos[static_cast<std::size_t>(elegido_)];
        texto = Palabra(textos_, palabra::BordeDelCampo).arg(TextoQt(campo.nombre)).arg(campo.ancho).arg(BordeDe(campo));
    }
    if (accessibleDescription() != texto) setAccessibleDescription(texto);
}

}  // namespace qor
