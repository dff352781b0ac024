#include "app/pages/source_box.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "app/pages/controls.h"
#include "app/pages/folding_box.h"
#include "app/pages/layout.h"
#include "base/chosen_path.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "editor/option_rules.h"

namespace qor {

PanelDeOrigen::PanelDeOrigen(const EntornoDePagina& entorno, const Acciones& acciones, QWidget* padre)
    : QWidget(padre), entorno_(entorno), acciones_(acciones) {
    auto* const grupo = NuevoGrupo();
    auto* const otro = entorno_.lazos.Boton("OtherSource", this, acciones_.otroOrigen);
    auto* const propio = EnNegrita(Nuevo<QLabel>("Otro1", this));
    auto* const explicacion = Nuevo<QLabel>("Otro2", this);
    entorno_.lazos.AlMostrar(
        [this, explicacion] { explicacion->setVisible(entorno_.ventana.documento.especificacion.OrigenUsuario); });
    auto* const propios = new QVBoxLayout;
    propios->addWidget(propio);
    propios->addWidget(explicacion);
    auto* const orden = new QHBoxLayout(this);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->addWidget(grupo, 1);
    orden->addLayout(propios);
    orden->addStretch();
    orden->addWidget(otro, 0, Qt::AlignBottom);
}

CajaPlegable* PanelDeOrigen::NuevoGrupo() {
    Ventana& ventana = entorno_.ventana;
    Lazos& lazos = entorno_.lazos;
    auto* const grupo = Nuevo<CajaPlegable>("SourceField", this);
    const auto lugar = lazos.Par("ClienteOp", "ServidorOp", grupo, &Opciones::ClienteOp);
    auto* const tabla = lazos.Casilla("TablaCh", grupo, &Opciones::TablaCh);
    const auto formato = lazos.Par("AnchoFijo", "DelimTab", grupo, &Opciones::AnchoFijo);
    auto* const parametro = lazos.Casilla("FileParameterCh", grupo, &Opciones::FileParameterCh);
    auto* const ayuda = lazos.Casilla("AddF4", grupo, &Opciones::AddF4);
    auto* const nombre = Nuevo<QLabel>("SourceName", grupo);
    lazos.AlMostrar([&ventana, nombre] {
        const auto texto = [&ventana](int numero) { return TextoQt(ventana.textos.Texto(numero)); };
        PonerConLugarPara(nombre, texto(RotuloDeSourceName(ventana.documento.opciones)), {texto(49), texto(50), texto(51)});
        nombre->buddy()->setAccessibleName(SinLetra(nombre->text()));
    });
    auto* const archivo = lazos.Linea("ArchivoFuente", grupo, &Opciones::ArchivoFuente);
    nombre->setBuddy(archivo);
    auto* const examinar = lazos.Boton("ExaminarFuente", grupo, [this] {
        Vista& vista = entorno_.vista;
        const auto elegida = vista.ElegirParaAbrir({ClaseDeArchivo::Entrada});
        const auto ruta = ComoTexto(elegida, vista);
        if (!ruta) return;
        CambiarOpcion(entorno_.ventana, &Opciones::ArchivoFuente, *ruta);
        acciones_.archivoElegido(*elegida);
    });

    auto* const ruta = new QWidget(grupo);
    auto* const caja = new QHBoxLayout(ruta);
    caja->setContentsMargins(0, 0, 0, 0);
    caja->addWidget(nombre);
    caja->addWidget(archivo, 1);
    caja->addWidget(examinar);
    grupo->PonerArreglos({{lugar[0], 0, 0},
                          {formato[0], 0, 2},
                          {parametro, 0, 3},
                          {lugar[1], 1, 0},
                          {tabla, 1, 1},
                          {formato[1], 1, 2},
                          {ayuda, 1, 3},
                          {ruta, 2, 0, 4}},
                         {{lugar[0], 0, 0},
                          {formato[0], 0, 1},
                          {lugar[1], 1, 0},
                          {formato[1], 1, 1},
                          {tabla, 2, 0},
                          {parametro, 2, 1},
                          {ayuda, 3, 1},
                          {ruta, 4, 0, 4}},
                         3);
    return grupo;
}

}  // namespace qor
