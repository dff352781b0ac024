#include "app/pages/grid_parts.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "app/pages/controls.h"
#include "base/qt/reading_order.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/words.h"
#include "editor/cell_actions.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/key_filters.h"
#include "editor/row_block.h"
#include "editor/row_range.h"
#include "editor/undo_command.h"

namespace qor {

namespace {

void FiltrarTeclas(CeldaDeRejilla* celda, Ventana& ventana, const Lazos& lazos) {
    const LugarDeCelda lugar = celda->Lugar();
    celda->PonerFiltro([&ventana, &lazos, lugar](std::string_view texto) -> std::string {
        std::string pasado;
        lazos.Hacer([&] {
            if (texto.size() != 1) {
                pasado = FiltrarTextoDeCelda(ventana, lugar, texto);
                return;
            }
            const char tecla = FiltrarTeclaDeCelda(ventana, lugar, texto.front());
            if (tecla != teclaDescartada) pasado = tecla;
        });
        return pasado;
    });
    celda->PonerFiltroDeRetroceso([&ventana, &lazos, lugar] {
        bool admite = false;
        lazos.Hacer([&] { admite = FiltrarTeclaDeCelda(ventana, lugar, retroceso) != teclaDescartada; });
        return admite;
    });
}

// A heading whose borders with its neighbours can be dragged.
class CabeceraDeColumna : public QLabel {
public:
    CabeceraDeColumna(MarcoDeRejilla* marco, int columna) : QLabel(marco), marco_(marco), columna_(columna) {
        setMouseTracking(true);
    }

protected:
    void mousePressEvent(QMouseEvent* evento) override {
        if (evento->button() != Qt::LeftButton) return;
        borde_ = BordeEn(evento->pos().x());
        desde_ = evento->globalPosition().toPoint().x();
    }
    void mouseMoveEvent(QMouseEvent* evento) override {
        if (!(evento->buttons() & Qt::LeftButton)) {
            BordeEn(evento->pos().x()) >= 0 ? setCursor(Qt::SplitHCursor) : unsetCursor();
        } else if (borde_ >= 0) {
            const int ahora = evento->globalPosition().toPoint().x();
            marco_->MoverBorde(borde_, ahora - desde_);
            marco_->layout()->activate();
            desde_ = ahora;
        }
    }
    void mouseReleaseEvent(QMouseEvent* /*evento*/) override { borde_ = -1; }

private:
    // The column whose right border is at the point; -1 for none.
    int BordeEn(int x) const {
        constexpr int alcance = 5;
        if (x >= width() - alcance) return columna_;
        return x < alcance ? columna_ - 1 : -1;
    }

    MarcoDeRejilla* marco_;
    int columna_;
    int borde_ = -1;
    int desde_ = 0;
};

}  // namespace

CeldaDeRejilla* NuevaCelda(const EntornoDePagina& entorno, LugarDeCelda lugar, QWidget* padre, const AccionesDeRejilla& acciones) {
    auto* const celda = new CeldaDeRejilla(lugar, padre);
    celda->setMinimumWidth(celda->fontMetrics().averageCharWidth() * 3);
    celda->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Maximum);
    Ventana& ventana = entorno.ventana;
    Lazos& lazos = entorno.lazos;
    FiltrarTeclas(celda, ventana, lazos);
    const auto alOcurrir = [&](auto senal, auto accion) {
        QObject::connect(celda, senal, &lazos,
                         [&lazos, accion](auto... datos) { lazos.Hacer([&accion, datos...] { accion(datos...); }); });
    };
    alOcurrir(&CeldaDeRejilla::Entrada, [&ventana, lugar] { EntrarEnCelda(ventana, lugar); });
    alOcurrir(&CeldaDeRejilla::EntradaEnMarcada, [&ventana, lugar] { EntrarEnMarcada(ventana, lugar); });
    alOcurrir(&CeldaDeRejilla::Salida, [&ventana, lugar] { SalirDeCelda(ventana, lugar); });
    alOcurrir(&CeldaDeRejilla::Escrita, [&ventana, celda, lugar] {
        // A new document has taken the focus from the window, and not from the control.
        EntrarEnCelda(ventana, lugar);
        EscribirEnCelda(ventana, lugar, celda->Texto());
    });
    alOcurrir(&CeldaDeRejilla::Pulsada, [&ventana, lugar](Tecla tecla) { TeclaEnCelda(ventana, lugar, tecla); });
    QObject::connect(celda, &CeldaDeRejilla::PideDeshacer, &lazos,
                     [&ventana, &lazos] { lazos.Mandar([&] { Deshacer(ventana); }); });
    alOcurrir(&CeldaDeRejilla::SoltadoCampo, [&ventana, lugar](int linea) { SoltarCampo(ventana, lugar.linea, linea); });
    alOcurrir(&CeldaDeRejilla::SoltadoOkCode,
              [&ventana, lugar](RotuloDeOkCode rotulo) { SoltarOkCode(ventana, lugar.linea, rotulo); });
    alOcurrir(&CeldaDeRejilla::DobleClic, [&ventana, lugar, notas = acciones.notas] {
        if (const auto fila = DobleClicEnCelda(ventana, lugar)) notas(*fila);
    });
    alOcurrir(&CeldaDeRejilla::PideBloque,
              [&ventana, lugar](const QString& texto) { PegarBloque(ventana, lugar, TextoDelModelo(texto)); });
    alOcurrir(&CeldaDeRejilla::PideCopia,
              [&ventana, lugar] { QApplication::clipboard()->setText(TextoQt(CopiarFilas(ventana, lugar))); });
    QObject::connect(celda, &CeldaDeRejilla::PideMenu, &lazos,
                     [lugar, menu = acciones.menu](const QPoint& punto) { menu(lugar, punto); });
    return celda;
}

int TituloDe(Columna columna) {
    switch (columna) {
        case Columna::CampoDeArchivo: return 32;
        case Columna::Ancho: return 33;
        case Columna::Programa: return 34;
        case Columna::Dynpro: return 35;
        case Columna::Campo: return 36;
        default: return 37;
    }
}

void MostrarCeldas(const Ventana& ventana, const std::vector<CeldaDeRejilla*>& celdas) {
    const auto& marcadas = ventana.filasMarcadas;
    for (auto* const celda : celdas) {
        const auto lugar = celda->Lugar();
        bool marcada = false;
        if (marcadas && marcadas->tabla == TablaDe(lugar.columna)) {
            const auto [desde, hasta] = std::minmax(marcadas->ancla, marcadas->ultima);
            marcada = FilaDe(ventana, lugar) >= desde && FilaDe(ventana, lugar) <= hasta;
        }
        celda->Sincronizar(CeldaDe(ventana, lugar), marcada);
        const QString nombre = TextoQt(ventana.textos.Texto(TituloDe(lugar.columna))) + QStringLiteral(", ") +
                               Palabra(ventana.textos, palabra::FilaNumero).arg(FilaDe(ventana, lugar) + 1);
        // A name that is set is told to screen readers, also where it is the one before.
        if (celda->accessibleName() != nombre) celda->setAccessibleName(nombre);
    }
}

std::vector<std::vector<QWidget*>> CeldasPorLinea(const std::vector<CeldaDeRejilla*>& celdas, int lineas) {
    std::vector<std::vector<QWidget*>> porLinea(static_cast<std::size_t>(lineas));
    for (auto* const celda : celdas) porLinea[static_cast<std::size_t>(celda->Lugar().linea)].push_back(celda);
    return porLinea;
}

MarcoDeRejilla::MarcoDeRejilla(QWidget* padre, std::function<void(int)> desplazar)
    : QFrame(padre), desplazar_(std::move(desplazar)), orden_(new QGridLayout(this)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Mid);
    setProperty(propiedadDeOrdenPropio, true);
    orden_->setContentsMargins(1, 1, 1, 1);
    orden_->setSpacing(1);
}

QLabel* MarcoDeRejilla::NuevaCabecera(const char* nombre, int letras) {
    auto* const cabecera = ComoCabecera(Nuevo<CabeceraDeColumna>(nombre, this, cabeceras_));
    cabecera->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    orden_->addWidget(cabecera, 0, cabeceras_);
    orden_->setColumnMinimumWidth(cabeceras_, fontMetrics().averageCharWidth() * letras);
    ++cabeceras_;
    return cabecera;
}

void MarcoDeRejilla::PonerPartes(const std::vector<int>& partes) {
    partes_ = partes;
    for (int i = 0; i < static_cast<int>(partes.size()); ++i) {
        orden_->setColumnStretch(i, std::max(1, partes[static_cast<std::size_t>(i)]));
    }
}

void MarcoDeRejilla::MoverBorde(int columna, int paso) {
    if (columna < 0 || columna + 1 >= cabeceras_) return;
    std::vector<int> anchos;
    for (int i = 0; i < cabeceras_; ++i) anchos.push_back(orden_->cellRect(1, i).width());
    const auto menor = [this](int i) {
        const QLayoutItem* const cabecera = orden_->itemAtPosition(0, i);
        return std::max(orden_->columnMinimumWidth(i), cabecera->isEmpty() ? 0 : cabecera->minimumSize().width());
    };
    auto& uno = anchos[static_cast<std::size_t>(columna)];
    auto& otro = anchos[static_cast<std::size_t>(columna) + 1];
    const int admitido = std::clamp(paso, std::min(0, menor(columna) - uno), std::max(0, otro - menor(columna + 1)));
    uno += admitido;
    otro -= admitido;
    PonerPartes(anchos);
}

void MarcoDeRejilla::wheelEvent(QWheelEvent* evento) {
    // A step of the wheel is 120; finer wheels send parts of it.
    constexpr int pasoDeRueda = 120;
    constexpr int filasPorPaso = 3;
    restoDeRueda_ += evento->angleDelta().y() * filasPorPaso;
    const int filas = -restoDeRueda_ / pasoDeRueda;
    restoDeRueda_ %= pasoDeRueda;
    if (filas != 0) desplazar_(filas);
    evento->accept();
}

void RotuloDeLinea::mouseDoubleClickEvent(QMouseEvent* evento) {
    dobleClic_();
    evento->accept();
}

QLabel* ComoCabecera(QLabel* rotulo) {
    rotulo->setAutoFillBackground(true);
    rotulo->setBackgroundRole(QPalette::Button);
    rotulo->setForegroundRole(QPalette::ButtonText);
    rotulo->setMargin(3);
    rotulo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return rotulo;
}

QScrollBar* NuevaBarra(QWidget* padre, const char* nombre, int ultima, int lineas) {
    auto* const barra = Nuevo<QScrollBar>(nombre, Qt::Vertical, padre);
    barra->setRange(0, ultima);
    barra->setPageStep(lineas);
    barra->setFocusPolicy(Qt::NoFocus);
    return barra;
}

int AltoDeTitulo(const QWidget& control) { return control.fontMetrics().height() + 8; }

}  // namespace qor
