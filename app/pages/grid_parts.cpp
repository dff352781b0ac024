#include "app/pages/grid_parts.h"

#include <QGridLayout>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "app/pages/controls.h"
#include "editor/cell_actions.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/key_filters.h"
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

}  // namespace

CeldaDeRejilla* NuevaCelda(const EntornoDePagina& entorno, LugarDeCelda lugar, QWidget* padre,
                           const std::function<void(FilaDeTabla)>& notas) {
    auto* const celda = new CeldaDeRejilla(lugar, padre);
    celda->setMinimumWidth(celda->fontMetrics().averageCharWidth() * 3);
    celda->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    celda->setMaximumHeight(celda->sizeHint().height() * 3 / 2);
    Ventana& ventana = entorno.ventana;
    Lazos& lazos = entorno.lazos;
    FiltrarTeclas(celda, ventana, lazos);
    const auto alOcurrir = [&](auto senal, auto accion) {
        QObject::connect(celda, senal, &lazos,
                         [&lazos, accion](auto... datos) { lazos.Hacer([&accion, datos...] { accion(datos...); }); });
    };
    alOcurrir(&CeldaDeRejilla::Entrada, [&ventana, lugar] { EntrarEnCelda(ventana, lugar); });
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
    alOcurrir(&CeldaDeRejilla::DobleClic, [&ventana, lugar, notas] {
        if (const auto fila = DobleClicEnCelda(ventana, lugar)) notas(*fila);
    });
    return celda;
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
    orden_->setContentsMargins(1, 1, 1, 1);
    orden_->setSpacing(1);
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
