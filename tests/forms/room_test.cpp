#include <gtest/gtest.h>

#include <QLayout>
#include <iostream>

#include "tests/forms/all_dialogs.h"
#include "tests/forms/dialog_fixture.h"

namespace qor::pruebas {
namespace {

class Sitio : public ::testing::TestWithParam<const char*> {};

TEST_P(Sitio, EachDialogFitsASmallScreen) {
    TodosLosDialogos todos(datos + "/language.txt", GetParam());
    for (const auto& dialogo : todos.Crear()) {
        const DialogoAbierto abierto(*dialogo);
        const QSize menor = dialogo->minimumSizeHint();
        std::cerr << dialogo->objectName().toStdString() << " min " << menor.width() << "x" << menor.height() << " size "
                  << dialogo->width() << "x" << dialogo->height() << "\n";
        dialogo->reject();
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Sitio, ::testing::Values("English", "Espanol"));

}  // namespace
}  // namespace qor::pruebas
