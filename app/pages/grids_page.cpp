#include "app/pages/grids_page.h"

#include <QVBoxLayout>
#include <utility>

#include "app/pages/file_grid.h"
#include "app/pages/program_grid.h"

namespace qor {

PaginaDeRejillas::PaginaDeRejillas(const EntornoDePagina& entorno, const Acciones& acciones)
    : archivo_(new PanelDeArchivo(entorno, acciones.rejilla, this)),
      programa_(new PanelDePrograma(entorno, acciones.rejilla, this)),
      edicion_(new CajaDeEdicion(entorno, acciones.edicion, this)) {
    auto* const derecha = new QVBoxLayout;
    derecha->addWidget(programa_, 1);
    derecha->addWidget(edicion_);
    auto* const rejillas = new QHBoxLayout;
    rejillas->setSpacing(12);
    rejillas->addWidget(archivo_, 4);
    rejillas->addLayout(derecha, 9);
    auto* const orden = new QVBoxLayout(this);
    orden->addLayout(rejillas, 1);
    orden->addWidget(new PanelDeOrigen(entorno, acciones.origen, this));
}

void PaginaDeRejillas::MostrarRejillas() {
    archivo_->MostrarLineas();
    programa_->MostrarLineas();
}

void PaginaDeRejillas::PonerSignos(SignosDeFilas archivo, SignosDeFilas programa) {
    archivo_->Signos().PonerSignos(std::move(archivo));
    programa_->Signos().PonerSignos(std::move(programa));
}

}  // namespace qor
