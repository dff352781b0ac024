#include "print/qt/qt_device.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <algorithm>
#include <utility>

#include "base/qt/text.h"

namespace qor {

namespace {

constexpr double twipsPorPunto = 20;
constexpr double twipsPorPulgada = 1440;
constexpr double margenDerecho = 400;
constexpr double margenDeArriba = 360;
constexpr double margenDeAbajo = 360;
// The sheet that documents are laid out for, A4. On a narrower one everything is so much smaller.
constexpr double anchoUsual = 11906;
constexpr double altoUsual = 16838;
// The average width of a character of Arial in parts of its size.
constexpr double anchoMedio = 0.4414;

// The words of a text, each with the blanks behind it. Blanks in front of the first one are a word of their own.
QStringList PalabrasDe(const QString& texto) {
    QStringList palabras;
    qsizetype inicio = 0;
    for (qsizetype i = 1; i <= texto.size(); ++i) {
        const bool empiezaOtra = i == texto.size() || (texto.at(i - 1) == QLatin1Char(' ') && texto.at(i) != QLatin1Char(' '));
        if (!empiezaOtra) continue;
        palabras << texto.mid(inicio, i - inicio);
        inicio = i;
    }
    return palabras;
}

QString SinBlancosDetras(QString texto) {
    while (texto.endsWith(QLatin1Char(' '))) texto.chop(1);
    return texto;
}

}  // namespace

DispositivoQt::DispositivoQt(QPagedPaintDevice& papel) : papel_(papel) {
    QPageLayout pagina = papel_.pageLayout();
    pagina.setMode(QPageLayout::FullPageMode);
    pagina.setMargins({});
    papel_.setPageLayout(pagina);
    const QSizeF tamano = papel_.pageLayout().fullRect(QPageLayout::Point).size();
    escala_ = std::min(1.0, tamano.width() * twipsPorPunto / anchoUsual);
    anchoDePapel_ = tamano.width() * twipsPorPunto / escala_;
    altoDePapel_ = tamano.height() * twipsPorPunto / escala_;
    y_ = margenDeArriba;
    abierto_ = pintor_.begin(&papel_);
    puntosPorTwip_ = papel_.logicalDpiX() / twipsPorPulgada * escala_;
}

DispositivoQt::~DispositivoQt() { DispositivoQt::Terminar(); }

QFont DispositivoQt::FuenteActual() const {
    QFont fuente;
    fuente.setFamilies({QString::fromStdString(letra_.nombre), QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans"),
                        QStringLiteral("Helvetica")});
    fuente.setStyleHint(QFont::SansSerif);
    fuente.setPointSizeF(letra_.tamano * escala_);
    fuente.setBold(letra_.negrita || titulo_);
    fuente.setUnderline(titulo_);
    fuente.setItalic(clave_);
    return fuente;
}

double DispositivoQt::AnchoDeCaracter() const { return anchoMedio * letra_.tamano * twipsPorPunto; }

double DispositivoQt::Ancho(const Trozo& trozo) const {
    return QFontMetricsF(trozo.fuente, &papel_).horizontalAdvance(trozo.texto) / puntosPorTwip_;
}

double DispositivoQt::AltoDeLinea(const QFont& fuente) const {
    return QFontMetricsF(fuente, &papel_).lineSpacing() / puntosPorTwip_;
}

double DispositivoQt::Derecha() const { return anchoDePapel_ - margenDerecho; }

double DispositivoQt::Abajo() const { return altoDePapel_ - margenDeAbajo; }

int DispositivoQt::PosicionVertical() const { return static_cast<int>(y_ + std::max(0.0, altoUsual - altoDePapel_)); }

void DispositivoQt::Item(std::string_view texto) {
    if (linea_.empty()) linea_.push_back({static_cast<double>(origen_), AnchoDeCaracter(), {}});
    QString limpio = LineasQt(texto);
    for (QChar& c : limpio) {
        if (c == '\n' || c == '\r' || c == '\t') c = ' ';
    }
    linea_.back().trozos.push_back({limpio, FuenteActual()});
}

void DispositivoQt::Tab(int columna) {
    double x = origen_ + AnchoDeCaracter() * (columna - 1);
    // A column that the line has passed already is one blank away.
    if (!linea_.empty()) x = std::max(x, linea_.back().x + 2 * linea_.back().paso);
    linea_.push_back({std::min(x, Derecha() - 2 * AnchoDeCaracter()), AnchoDeCaracter(), {}});
}

void DispositivoQt::PonerEnfasis(Enfasis enfasis, bool puesto) { (enfasis == Enfasis::Titulo ? titulo_ : clave_) = puesto; }

// At least one, so that a cell of no width still comes to an end.
std::size_t DispositivoQt::CuantosCaben(const Trozo& trozo, double ancho) const {
    std::size_t pocos = 1;
    auto muchos = static_cast<std::size_t>(trozo.texto.size());
    while (pocos < muchos) {
        const std::size_t medio = (pocos + muchos + 1) / 2;
        const Trozo comienzo{trozo.texto.left(static_cast<qsizetype>(medio)), trozo.fuente};
        if (Ancho(comienzo) <= ancho) {
            pocos = medio;
        } else {
            muchos = medio - 1;
        }
    }
    return pocos;
}

std::vector<std::vector<DispositivoQt::Trozo>> DispositivoQt::Partir(const Celda& celda, double ancho) const {
    std::vector<std::vector<Trozo>> lineas(1);
    double usado = 0;
    const auto nuevaLinea = [&] {
        lineas.emplace_back();
        usado = 0;
    };
    const auto poner = [&](const Trozo& trozo) {
        auto& linea = lineas.back();
        if (!linea.empty() && linea.back().fuente == trozo.fuente) {
            linea.back().texto += trozo.texto;
        } else {
            linea.push_back(trozo);
        }
        usado += Ancho(trozo);
    };
    for (const auto& trozo : celda.trozos) {
        for (Trozo palabra{{}, trozo.fuente}; const QString& texto : PalabrasDe(trozo.texto)) {
            palabra.texto = texto;
            const auto sobra = [&](double libre) { return Ancho({SinBlancosDetras(palabra.texto), palabra.fuente}) > libre; };
            if (usado > 0 && sobra(ancho - usado)) nuevaLinea();
            while (sobra(ancho)) {
                const auto caben = static_cast<qsizetype>(CuantosCaben(palabra, ancho));
                poner({palabra.texto.left(caben), palabra.fuente});
                palabra.texto.remove(0, caben);
                if (palabra.texto.isEmpty()) break;
                nuevaLinea();
            }
            if (!palabra.texto.isEmpty()) poner(palabra);
        }
    }
    return lineas;
}

void DispositivoQt::AcabarPagina() {
    if (!pasar_ || pasando_) return NuevaPagina();
    const bool titulo = std::exchange(titulo_, false);
    const bool clave = std::exchange(clave_, false);
    pasando_ = true;
    pasar_(*this);
    pasando_ = false;
    titulo_ = titulo;
    clave_ = clave;
}

void DispositivoQt::FinDeLinea() {
    const std::vector<Celda> linea = std::exchange(linea_, {});
    const double alto = AltoDeLinea(FuenteActual());
    std::vector<std::vector<std::vector<Trozo>>> celdas;
    std::size_t lineas = 1;
    for (std::size_t i = 0; i < linea.size(); ++i) {
        const double hasta = i + 1 < linea.size() ? linea[i + 1].x - linea[i].paso : Derecha();
        celdas.push_back(Partir(linea[i], hasta - linea[i].x));
        lineas = std::max(lineas, celdas.back().size());
    }
    for (std::size_t n = 0; n < lineas; ++n) {
        double estaLinea = alto;
        for (const auto& celda : celdas) {
            if (n >= celda.size()) continue;
            for (const auto& trozo : celda[n]) estaLinea = std::max(estaLinea, AltoDeLinea(trozo.fuente));
        }
        const bool hayTexto =
            std::any_of(celdas.begin(), celdas.end(), [n](const auto& celda) { return n < celda.size() && !celda[n].empty(); });
        if (hayTexto && y_ + estaLinea > Abajo() && y_ > margenDeArriba) AcabarPagina();
        for (std::size_t i = 0; i < celdas.size(); ++i) {
            if (n >= celdas[i].size()) continue;
            double x = linea[i].x;
            for (const auto& trozo : celdas[i][n]) {
                Pintar(x, y_ + QFontMetricsF(trozo.fuente, &papel_).ascent() / puntosPorTwip_, trozo.texto, trozo.fuente);
                x += Ancho(trozo);
            }
        }
        y_ += estaLinea;
    }
}

void DispositivoQt::Pintar(double x, double y, const QString& texto, const QFont& fuente) {
    if (!abierto_) return;
    pintor_.setFont(fuente);
    pintor_.drawText(QPointF(x * puntosPorTwip_, y * puntosPorTwip_), texto);
}

void DispositivoQt::NuevaPagina() {
    if (abierto_) papel_.newPage();
    y_ = margenDeArriba;
    ++pagina_;
}

void DispositivoQt::Terminar() {
    if (!linea_.empty()) FinDeLinea();
    if (abierto_) pintor_.end();
    abierto_ = false;
}

}  // namespace qor
