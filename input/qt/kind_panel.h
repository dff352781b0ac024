#pragma once

#include <QGroupBox>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "base/messages.h"
#include "input/kinds.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace qor {

class CajaDeLinea;

// What is said of the values of one field: shows it, and tells every change that says something. Where what is typed says nothing,
// such as an expression without an end, the panel says so below its controls and tells no change.
class PanelDeClase : public QGroupBox {
    Q_OBJECT
public:
    // Asks for a file; nothing where none was chosen.
    using Elegir = std::function<std::optional<std::filesystem::path>()>;

    PanelDeClase(const TextosIdioma& textos, Elegir elegir, QWidget* padre);

    // The field by its name, an empty one for none, and what is said of it. `documento` is where a value list is relative to.
    void Mostrar(const std::string& campo, const ClaseDeCampo& clase, const std::filesystem::path& documento);
    const std::string& Campo() const { return campo_; }

signals:
    void Cambiada();

public:
    // What the controls say; nothing while they say nothing.
    std::optional<ClaseDeCampo> Clase() const { return clase_; }

private:
    template <typename Control>
    void AgregarFila(QGridLayout* orden, const char* nombre, int rotulo, Control* control);
    void Leer();
    void MostrarDeTipo();
    void ElegirLista();
    QString Falta(const ClaseDeCampo& clase) const;

    const TextosIdioma& textos_;
    Elegir elegir_;
    std::string campo_;
    std::filesystem::path documento_;
    std::optional<ClaseDeCampo> clase_;
    ClaseDeCampo dicha_;  // the last one that was shown or told
    bool mostrado_ = false;
    bool mostrando_ = false;

    QLabel* nombre_;
    QCheckBox* obligatorio_;
    QComboBox* tipo_;
    QComboBox* decimal_;
    QComboBox* formato_;
    CajaDeLinea* patron_;
    CajaDeLinea* lista_;
    QPushButton* examinar_;
    QLabel* falta_;
};

}  // namespace qor
