#include "app/pages/options_page.h"

#include <QVBoxLayout>

#include "app/pages/controls.h"
#include "app/pages/error_options.h"
#include "app/pages/input_options.h"
#include "app/pages/naming_options.h"
#include "app/qt/tabs.h"

namespace qor {

PaginaDeOpciones::PaginaDeOpciones(const EntornoDePagina& entorno) : SSTab2_(Nuevo<Pestanas>("SSTab2", this)) {
    SSTab2_->addTab(new OpcionesDeErrores(entorno), {});
    entrada_ = new OpcionesDeEntrada(entorno);
    SSTab2_->addTab(entrada_, {});
    SSTab2_->addTab(new OpcionesDeNombres(entorno), {});
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(SSTab2_);
}

bool PaginaDeOpciones::OptionEncodingAdditional() const { return entrada_->OptionEncodingAdditional(); }

}  // namespace qor
