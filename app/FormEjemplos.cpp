#include "app/FormEjemplos.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/pages/controls.h"
#include "base/qt/text.h"
#include "base/text.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr int rotuloDeCancelar = 187;

}  // namespace

FormEjemplos::FormEjemplos(const TextosIdioma& textos, const std::vector<EjemploIncluido>& ejemplos,
                           const std::filesystem::path& destino, QWidget* padre)
    : Dialogo(textos, "FormEjemplos", padre), lista_(Nuevo<QListWidget>("ListaDeEjemplos", this)) {
    setWindowTitle(Palabra(palabra::AbrirUnEjemplo));
    const std::string& codigo = textos.Palabra(palabra::CodigoDelIdioma);
    lista_->setAccessibleName(Palabra(palabra::Ejemplos));
    lista_->setWordWrap(true);
    lista_->setAlternatingRowColors(true);
    lista_->setSpacing(2);
    lista_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lista_->setResizeMode(QListView::Adjust);
    for (const auto& ejemplo : ejemplos) lista_->addItem(QString::fromStdString(ejemplo.Frase(codigo)));
    lista_->setCurrentRow(0);
    auto* const explicacion =
        NuevaExplicacion("DestinoDeEjemplo", Palabra(palabra::UnaCopiaDelEjemploSeAbre).arg(NombreQt(destino)));
    auto* const abrir = NuevoBoton("Abrir", Palabra(palabra::Abrir));
    auto* const cancelar = NuevoBoton("Cancelar", Rotulo(rotuloDeCancelar));
    abrir->setDefault(true);
    connect(abrir, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(lista_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(lista_, 1);
    orden->addWidget(explicacion);
    orden->addLayout(FilaDeBotones({abrir, cancelar}));
    PonerTamano(95, 30);
}

std::optional<std::size_t> FormEjemplos::Elegido() const {
    if (result() != QDialog::Accepted || lista_->currentRow() < 0) return std::nullopt;
    return static_cast<std::size_t>(lista_->currentRow());
}

}  // namespace qor
