#include "editor/FormCamposQueFaltan.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/qt/text.h"
#include "base/words.h"

namespace qor {

FormCamposQueFaltan::FormCamposQueFaltan(const TextosIdioma& textos, const std::vector<std::string>& campos, QWidget* padre)
    : Dialogo(textos, "FormCamposQueFaltan", padre), campos_(campos), lista_(new QListWidget(this)) {
    setWindowTitle(Palabra(palabra::AgregarLosCamposQueFaltan));
    lista_->setObjectName(QStringLiteral("ListaDeCampos"));
    lista_->setAccessibleName(windowTitle());
    for (const auto& campo : campos_) lista_->addItem(TextoQt(campo));
    Marcar(true);
    auto* const explicacion = NuevaExplicacion("Explicacion", Palabra(palabra::EstosCamposFaltanEnElArchivo));
    auto* const todos = NuevoBoton("MarcarTodos", Palabra(palabra::MarcarTodos));
    auto* const ninguno = NuevoBoton("MarcarNinguno", Palabra(palabra::MarcarNinguno));
    auto* const aceptar = NuevoBoton("OKButton", Palabra(palabra::Agregar));
    aceptar->setDefault(true);
    auto* const cancelar = NuevoBoton("Cancelar", Rotulo(187));
    connect(todos, &QPushButton::clicked, this, [this] { Marcar(true); });
    connect(ninguno, &QPushButton::clicked, this, [this] { Marcar(false); });
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(explicacion);
    orden->addWidget(lista_, 1);
    orden->addLayout(FilaDeBotones({todos, ninguno, aceptar, cancelar}, 2));
    PonerTamano(60, 22);
    lista_->setCurrentRow(0);
    lista_->setFocus();
}

void FormCamposQueFaltan::Marcar(bool marcados) {
    for (int i = 0; i < lista_->count(); ++i) lista_->item(i)->setCheckState(marcados ? Qt::Checked : Qt::Unchecked);
}

std::vector<std::string> FormCamposQueFaltan::Elegidos() const {
    std::vector<std::string> elegidos;
    if (result() != QDialog::Accepted) return elegidos;
    for (int i = 0; i < lista_->count(); ++i) {
        if (lista_->item(i)->checkState() == Qt::Checked) elegidos.push_back(campos_[static_cast<std::size_t>(i)]);
    }
    return elegidos;
}

}  // namespace qor
