#include "app/pages/ties.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

#include "app/pages/controls.h"
#include "base/key_filters.h"
#include "base/qt/text_boxes.h"
#include "editor/option_rules.h"

namespace qor {

void Lazos::Hacer(const Accion& accion) const {
    if (!callado_) ejecutores_.evento(accion);
}

bool Lazos::Mandar(const Accion& accion) const { return !callado_ && ejecutores_.comando(accion); }

void Lazos::Cambio(const Accion& accion) const {
    if (!mostrando_) Hacer(accion);
}

void Lazos::CambioDeAjuste(const Accion& accion) const {
    Cambio([&] {
        accion();
        ejecutores_.guardarAjustes();
    });
}

void Lazos::MostrarTodo() {
    SinCambios([this] {
        for (const auto& paso : pasos_) paso();
    });
}

QCheckBox* Lazos::Casilla(const char* nombre, QWidget* padre, int Opciones::*opcion) {
    auto* const casilla = Nuevo<QCheckBox>(nombre, padre);
    connect(casilla, &QCheckBox::toggled, this,
            [this, opcion](bool puesta) { Cambio([&] { CambiarOpcion(ventana_, opcion, puesta ? 1 : 0); }); });
    AlMostrar([this, casilla, opcion] { casilla->setChecked(ventana_.documento.opciones.*opcion == 1); });
    return casilla;
}

std::array<QRadioButton*, 2> Lazos::Par(const char* primero, const char* segundo, QWidget* padre, bool Opciones::*opcion) {
    auto* const si = Nuevo<QRadioButton>(primero, padre);
    auto* const no = Nuevo<QRadioButton>(segundo, padre);
    auto* const grupo = new QButtonGroup(padre);
    grupo->addButton(si);
    grupo->addButton(no);
    connect(si, &QRadioButton::toggled, this,
            [this, opcion](bool puesto) { Cambio([&] { CambiarOpcion(ventana_, opcion, puesto); }); });
    AlMostrar([this, si, no, opcion] { (ventana_.documento.opciones.*opcion ? si : no)->setChecked(true); });
    return {si, no};
}

CajaDeLinea* Lazos::Linea(const char* nombre, QWidget* padre, std::string Opciones::*opcion,
                          void (*cambiar)(Ventana&, const std::string&)) {
    auto* const caja = CajaFiltrada(nombre, padre);
    connect(caja, &QLineEdit::textChanged, this, [this, caja, opcion, cambiar] {
        Cambio([&] {
            if (cambiar != nullptr) return cambiar(ventana_, caja->Texto());
            CambiarOpcion(ventana_, opcion, caja->Texto());
        });
    });
    AlMostrar([this, caja, opcion] { caja->PonerTexto(ventana_.documento.opciones.*opcion); });
    return caja;
}

CajaDeTexto* Lazos::Texto(const char* nombre, QWidget* padre, std::string Opciones::*opcion) {
    auto* const caja = Nuevo<CajaDeTexto>(nombre, padre);
    connect(caja, &QPlainTextEdit::textChanged, this,
            [this, caja, opcion] { Cambio([&] { CambiarOpcion(ventana_, opcion, caja->Texto()); }); });
    AlMostrar([this, caja, opcion] {
        if (caja->Texto() != ventana_.documento.opciones.*opcion) caja->PonerTexto(ventana_.documento.opciones.*opcion);
    });
    return caja;
}

QComboBox* Lazos::Combo(const char* nombre, QWidget* padre, std::string Opciones::*opcion) {
    auto* const combo = Nuevo<QComboBox>(nombre, padre);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    auto* const caja = new CajaDeLinea(combo);
    combo->setLineEdit(caja);
    connect(combo, &QComboBox::currentTextChanged, this,
            [this, caja, opcion] { Cambio([&] { CambiarOpcion(ventana_, opcion, caja->Texto()); }); });
    AlMostrar([this, caja, opcion] { caja->PonerTexto(ventana_.documento.opciones.*opcion); });
    return combo;
}

QCheckBox* Lazos::CasillaDeAjuste(const char* nombre, QWidget* padre, const std::function<bool()>& leer,
                                  const std::function<void(bool)>& cambiar) {
    auto* const casilla = Nuevo<QCheckBox>(nombre, padre);
    connect(casilla, &QCheckBox::toggled, this, [this, cambiar](bool puesta) { CambioDeAjuste([&] { cambiar(puesta); }); });
    AlMostrar([casilla, leer] { casilla->setChecked(leer()); });
    return casilla;
}

CajaDeLinea* Lazos::CajaFiltrada(const char* nombre, QWidget* padre) {
    auto* const caja = Nuevo<CajaDeLinea>(nombre, padre);
    caja->PonerFiltro([control = std::string(nombre)](std::string_view texto) { return FiltrarTexto(control, texto); });
    return caja;
}

void Lazos::GuardarAlDejar(const CajaDeLinea* caja) {
    connect(caja, &QLineEdit::editingFinished, this, [this] { CambioDeAjuste([] {}); });
}

QPushButton* Lazos::Boton(const char* nombre, QWidget* padre, const Accion& accion) {
    auto* const boton = Nuevo<QPushButton>(nombre, padre);
    boton->setFocusPolicy(Qt::TabFocus);
    connect(boton, &QPushButton::clicked, this, [this, accion] { Mandar(accion); });
    return boton;
}

}  // namespace qor
