#include "app/pages/output_row.h"

#include <QPushButton>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "app/qt/theme_icon.h"
#include "base/chosen_path.h"
#include "base/qt/text_boxes.h"
#include "editor/option_rules.h"
#include "generator/output.h"
#include "model/suggested_name.h"

namespace qor {

namespace {

constexpr const char* filtroDeProgramas = "ABAP|*.abap|*.*|*";

}  // namespace

FilaDeSalida::FilaDeSalida(const EntornoDePagina& entorno, const std::function<void()>& generar, QWidget* padre) : QWidget(padre) {
    Lazos& lazos = entorno.lazos;
    auto* const rotulo = Nuevo<QLabel>("GenerateProgram", this);
    auto* const archivo = lazos.Linea("Programa", this, &Opciones::Programa);
    rotulo->setBuddy(archivo);
    auto* const examinar =
        lazos.Boton("ExaminarPrograma", this, [&ventana = entorno.ventana, &vista = entorno.vista, &programa = entorno.programa] {
            const auto& documento = ventana.documento;
            const auto elegida = vista.ElegirParaGrabar({.clase = ClaseDeArchivo::Programa,
                                                         .filtro = filtroDeProgramas,
                                                         .presente = RutaDelPrograma(documento),
                                                         .sugerido = NombreSugerido(documento, ".abap", ventana.textos),
                                                         .preguntaDespues = true});
            if (!elegida) return;
            AceptarLugarElegido(programa.generador, *elegida);
            const auto nombre = ComoTexto(NombreJuntoAlDocumento(documento, *elegida), vista);
            if (nombre) CambiarOpcion(ventana, &Opciones::Programa, *nombre);
        });
    auto* const boton = lazos.Boton("Generar", this, generar);
    boton->setIcon(IconoDeTema("generate"));
    auto* const orden = new QHBoxLayout(this);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->addWidget(rotulo);
    orden->addWidget(archivo, 1);
    orden->addWidget(examinar);
    orden->addSpacing(12);
    orden->addWidget(boton);
    delPrograma_ = {rotulo, archivo, examinar};
}

void FilaDeSalida::MostrarPrograma(bool visible) {
    for (auto* const control : delPrograma_) control->setVisible(visible);
}

}  // namespace qor
