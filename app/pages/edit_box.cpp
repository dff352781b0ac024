#include "app/pages/edit_box.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <array>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "app/qt/grid_cell.h"
#include "app/qt/theme_icon.h"
#include "base/qt/text.h"
#include "editor/find.h"

namespace qor {

CajaDeEdicion::CajaDeEdicion(const EntornoDePagina& entorno, const Acciones& acciones, QWidget* padre)
    : CajaPlegable(padre), entorno_(entorno) {
    setObjectName(QStringLiteral("FrameEdicion"));
    auto* const arrastre = NuevaFilaDeArrastre();
    auto* const agregar = entorno_.lazos.Boton("ButtonAddOperation", this, acciones.agregarOperacion);
    agregar->setIcon(IconoDeTema("operation"));
    auto* const condiciones = entorno_.lazos.Boton("Conditions", this, acciones.condiciones);
    condiciones->setIcon(IconoDeTema("conditions"));
    CrearBusquedas();

    PonerArreglos(
        {{arrastre, 0, 0}, {agregar, 0, 1}, {condiciones, 0, 2}, {buscado_, 1, 0}, {enArchivo_, 1, 1}, {enTransaccion_, 1, 2}},
        {{arrastre, 0, 0, 3}, {buscado_, 1, 0}, {enArchivo_, 1, 1}, {enTransaccion_, 1, 2}, {agregar, 2, 1}, {condiciones, 2, 2}},
        0);
}

QWidget* CajaDeEdicion::NuevaFilaDeArrastre() {
    auto* const arrastre = new QWidget(this);
    auto* const fila = new QHBoxLayout(arrastre);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->addWidget(Nuevo<QLabel>("ArrastreLabel", arrastre));
    constexpr std::array<const char*, 4> nombres = {"EnterCode", "SaveCode", "F5Code", "CreateCode"};
    for (std::size_t i = 0; i < nombres.size(); ++i) {
        fila->addWidget(Nuevo<RotuloDeArrastre>(nombres[i], static_cast<RotuloDeOkCode>(i), arrastre));
    }
    fila->addStretch();
    fila->addWidget(entorno_.lazos.Casilla("Autofill", arrastre, &Opciones::Autofill));
    return arrastre;
}

void CajaDeEdicion::CrearBusquedas() {
    Ventana& ventana = entorno_.ventana;
    Lazos& lazos = entorno_.lazos;
    buscado_ = lazos.CajaFiltrada("TextoBuscado", this);
    buscado_->setClearButtonEnabled(true);
    connect(buscado_, &QLineEdit::textChanged, this,
            [this] { entorno_.lazos.Cambio([this] { CambiarTextoBuscado(entorno_.ventana, buscado_->Texto()); }); });
    connect(buscado_, &QLineEdit::returnPressed, this, [this] { RepetirBusqueda(); });
    lazos.AlMostrar([this] { buscado_->PonerTexto(entorno_.ventana.busquedas.TextoBuscado); });
    enArchivo_ = lazos.Boton("BuscarArchivo", this, [this, &ventana] {
        ultimaEnArchivo_ = true;
        BuscarArchivo(ventana);
    });
    enTransaccion_ = lazos.Boton("BuscarTransaccion", this, [this, &ventana] {
        ultimaEnArchivo_ = false;
        BuscarTransaccion(ventana);
    });
    lazos.AlMostrar([this, &ventana] {
        const auto texto = [&ventana](int numero) { return TextoQt(ventana.textos.Texto(numero)); };
        PonerConLugarPara(enArchivo_, texto(RotuloDeBuscarArchivo(ventana)), {texto(45), texto(46)});
        PonerConLugarPara(enTransaccion_, texto(RotuloDeBuscarTransaccion(ventana)), {texto(47), texto(48)});
    });
}

void CajaDeEdicion::RepetirBusqueda() {
    entorno_.lazos.Mandar([this] { ultimaEnArchivo_ ? BuscarArchivo(entorno_.ventana) : BuscarTransaccion(entorno_.ventana); });
}

}  // namespace qor
