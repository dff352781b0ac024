#include "sap/FormLogon.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "base/code_page.h"
#include "base/qt/text.h"
#include "base/text.h"
#include "base/words.h"
#include "sap/templates.h"

namespace qor {

namespace {

constexpr int largoDeNumero = 2;
constexpr int largoDeSistema = 8;
constexpr int largoDeCliente = 3;
constexpr int largoDeIdioma = 2;
constexpr int cajaCorta = 12;

bool TodosLlenos(std::initializer_list<const QLineEdit*> cajas) {
    for (const auto* const caja : cajas) {
        if (caja->text().trimmed().isEmpty()) return false;
    }
    return true;
}

bool SePuedeMandar(const QLineEdit& caja) {
    const auto texto = DesdeUtf8(caja.text().toStdString());
    return texto && !TieneControl(*texto);
}

std::string Cortado(const QLineEdit& caja) { return std::string(Recortar(TextoDelModelo(caja.text()))); }

}  // namespace

FormLogon::FormLogon(EleccionDeLogon& eleccion, const std::filesystem::path& practica, const TextosIdioma& textos, Vista& vista,
                     QWidget* padre)
    : Dialogo(textos, "FormLogon", padre), eleccion_(eleccion), parametros_(eleccion.parametros), vista_(vista) {
    setWindowTitle(Palabra(palabra::ConectarseAUnSistema));
    auto* const marcos = new QGridLayout;
    marcos->addWidget(CrearSistema(), 0, 0, 2, 1);
    FrameUsuario_ = CrearUsuario();
    marcos->addWidget(FrameUsuario_, 0, 1);
    marcos->addWidget(CrearPractica(practica), 1, 1);
    marcos->setColumnStretch(0, 1);
    Elegir();
    auto* const orden = new QVBoxLayout(this);
    orden->addLayout(marcos);
    OK_ = NuevoBoton("OK", Palabra(palabra::Aceptar));
    OK_->setDefault(true);
    auto* const Cancel = NuevoBoton("Cancel", Rotulo(187));
    connect(OK_, &QPushButton::clicked, this, [this] {
        aceptado_ = true;
        accept();
    });
    connect(Cancel, &QPushButton::clicked, this, &QDialog::reject);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({OK_, Cancel}));
    for (auto* const caja : findChildren<QLineEdit*>()) connect(caja, &QLineEdit::textChanged, this, &FormLogon::Habilitar);
    for (auto* const opcion : findChildren<QRadioButton*>()) connect(opcion, &QRadioButton::toggled, this, &FormLogon::Habilitar);
    Habilitar();
    PonerTamano(104, 12);
    if (OptionPractica_->isChecked()) {
        OK_->setFocus();
    } else {
        // What is missing of a logon that was made before is the password alone.
        (TodosLlenos({Cliente_, Usuario_}) ? Clave_ : Servidor_)->setFocus();
    }
}

FormLogon::~FormLogon() { Clave_->setText(QString(Clave_->text().size(), QLatin1Char(' '))); }

QLineEdit* FormLogon::NuevaCaja(const char* nombre, const std::string& texto, int letras) {
    auto* const caja = new QLineEdit(TextoQt(texto), this);
    caja->setObjectName(QString::fromLatin1(nombre));
    if (letras > 0) {
        caja->setMaxLength(letras);
        caja->setMaximumWidth(AnchoDeLetras(cajaCorta));
    }
    return caja;
}

QRadioButton* FormLogon::NuevaOpcion(const char* nombre, int rotulo, QWidget* marco) {
    auto* const opcion = new QRadioButton(Palabra(rotulo), marco);
    opcion->setObjectName(QString::fromLatin1(nombre));
    return opcion;
}

QWidget* FormLogon::CrearSistema() {
    auto* const marco = NuevoMarco("FrameSistema", Palabra(palabra::Sistema));
    OptionServidor_ = NuevaOpcion("OptionServidor", palabra::ServidorDeAplicaciones, marco);
    Servidor_ = NuevaCaja("Servidor", parametros_.servidor);
    NumeroDeSistema_ = NuevaCaja("NumeroDeSistema", parametros_.numeroDeSistema, largoDeNumero);
    OptionMensajes_ = NuevaOpcion("OptionMensajes", palabra::ServidorDeMensajesYGrupo, marco);
    ServidorDeMensajes_ = NuevaCaja("ServidorDeMensajes", parametros_.servidorDeMensajes);
    Sistema_ = NuevaCaja("Sistema", parametros_.sistema, largoDeSistema);
    Grupo_ = NuevaCaja("Grupo", parametros_.grupo);
    Ruta_ = NuevaCaja("Ruta", parametros_.ruta);
    Ruta_->setToolTip(Palabra(palabra::UnRouterConContrasena));
    auto* const rejilla = new QGridLayout(marco);
    rejilla->addWidget(OptionServidor_, 0, 0, 1, 2);
    LlenarFilas(rejilla, 1,
                {{"ServidorLabel", palabra::DireccionDelServidor, Servidor_},
                 {"NumeroDeSistemaLabel", palabra::NumeroDeSistema, NumeroDeSistema_}});
    rejilla->addWidget(OptionMensajes_, 3, 0, 1, 2);
    LlenarFilas(rejilla, 4,
                {{"ServidorDeMensajesLabel", palabra::DireccionDelServidorDeMensajes, ServidorDeMensajes_},
                 {"SistemaLabel", palabra::NombreDelSistema, Sistema_},
                 {"GrupoLabel", palabra::GrupoDeConexion, Grupo_},
                 {"RutaLabel", palabra::SAProuter, Ruta_}});
    return marco;
}

QWidget* FormLogon::CrearPractica(const std::filesystem::path& practica) {
    auto* const marco = NuevoMarco("FramePractica", {});
    OptionPractica_ = NuevaOpcion("OptionPractica", palabra::OpcionSistemaDePractica, marco);
    auto* const que = NuevoRotulo("PracticaLabel", Palabra(palabra::EsParteDeEstePrograma));
    OptionPractica_->setAccessibleDescription(que->text());
    for (auto* const control : std::initializer_list<QWidget*>{OptionPractica_, que}) control->setToolTip(NombreQt(practica));
    Rol_ = new QComboBox(this);
    Rol_->setObjectName(QStringLiteral("Rol"));
    constexpr std::pair<const char*, int> roles[] = {{"T", palabra::RolPrueba},      {"P", palabra::RolProduccion},
                                                     {"C", palabra::RolCustomizing}, {"D", palabra::RolDemostracion},
                                                     {"E", palabra::RolFormacion},   {"S", palabra::RolReferenciaSAP},
                                                     {"", palabra::RolNinguno}};
    for (const auto& [letra, nombre] : roles) Rol_->addItem(Palabra(nombre), QString::fromLatin1(letra));
    Rol_->setCurrentIndex(std::max(0, Rol_->findData(TextoQt(eleccion_.rol))));
    Rol_->setToolTip(Palabra(palabra::UnMandanteProductivoNoAdmiteProgramas));
    auto* const rejilla = new QGridLayout(marco);
    rejilla->addWidget(OptionPractica_, 0, 0, 1, 2);
    rejilla->addWidget(que, 1, 0, 1, 2);
    rejilla->addWidget(NuevoRotulo("RolLabel", Palabra(palabra::RolDelMandante), Rol_), 2, 0);
    rejilla->addWidget(Rol_, 2, 1);
    return marco;
}

// One of the three systems, which stand in two frames.
void FormLogon::Elegir() {
    auto* const sistemas = new QButtonGroup(this);
    for (auto* const opcion : {OptionServidor_, OptionMensajes_, OptionPractica_}) sistemas->addButton(opcion);
    const bool porMensajes = parametros_.servidor.empty() && !parametros_.servidorDeMensajes.empty();
    (eleccion_.practica ? OptionPractica_ : porMensajes ? OptionMensajes_ : OptionServidor_)->setChecked(true);
}

QWidget* FormLogon::CrearUsuario() {
    auto* const marco = NuevoMarco("FrameUsuario", Palabra(palabra::MarcoUsuario));
    Cliente_ = NuevaCaja("Cliente", parametros_.cliente, largoDeCliente);
    Usuario_ = NuevaCaja("Usuario", parametros_.usuario);
    Clave_ = NuevaCaja("Clave", {});
    Clave_->setEchoMode(QLineEdit::Password);
    Idioma_ = NuevaCaja("Idioma", parametros_.idioma, largoDeIdioma);
    auto* const rejilla = new QGridLayout(marco);
    LlenarFilas(rejilla, 0,
                {{"ClienteLabel", palabra::Mandante, Cliente_},
                 {"UsuarioLabel", palabra::Usuario, Usuario_},
                 {"ClaveLabel", palabra::Contrasena, Clave_},
                 {"IdiomaLabel", palabra::Idioma, Idioma_}});
    return marco;
}

void FormLogon::LlenarFilas(QGridLayout* rejilla, int primera, std::initializer_list<Fila> filas) {
    for (const auto& [nombre, rotulo, caja] : filas) {
        rejilla->addWidget(NuevoRotulo(nombre, Palabra(rotulo), caja), primera, 0);
        rejilla->addWidget(caja, primera++, 1);
    }
    rejilla->setColumnStretch(1, 1);
}

bool FormLogon::Completo() const {
    if (OptionPractica_->isChecked()) return true;
    const bool sistema = OptionServidor_->isChecked() ? TodosLlenos({Servidor_, NumeroDeSistema_})
                                                      : TodosLlenos({ServidorDeMensajes_, Sistema_, Grupo_});
    return sistema && TodosLlenos({Cliente_, Usuario_, Clave_});
}

void FormLogon::Habilitar() {
    const bool practica = OptionPractica_->isChecked();
    // The choice is one stop of the tab key, and the arrow keys change it.
    for (auto* const opcion : {OptionServidor_, OptionMensajes_, OptionPractica_}) {
        opcion->setFocusPolicy(opcion->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
    for (auto* const caja : {Servidor_, NumeroDeSistema_}) caja->setEnabled(OptionServidor_->isChecked());
    for (auto* const caja : {ServidorDeMensajes_, Sistema_, Grupo_}) caja->setEnabled(OptionMensajes_->isChecked());
    Ruta_->setEnabled(!practica);
    FrameUsuario_->setEnabled(!practica);
    Rol_->setEnabled(practica);
    OK_->setEnabled(Completo());
}

// The rows of the dialog name their boxes.
bool FormLogon::TodosSePuedenMandar() {
    for (const auto* const rotulo : findChildren<QLabel*>()) {
        auto* const caja = qobject_cast<QLineEdit*>(rotulo->buddy());
        if (caja == nullptr || !caja->isEnabled() || SePuedeMandar(*caja)) continue;
        caja->setFocus();
        caja->selectAll();
        const QString nombre = SinLetra(rotulo->text()).remove(QLatin1Char(':'));
        vista_.Advertir(MensajeDePalabra(Textos(), palabra::CaracterQueNoSePuedeEnviar, {TextoDelModelo(nombre)}));
        return false;
    }
    return true;
}

bool FormLogon::PuedeCerrar() {
    if (!std::exchange(aceptado_, false)) return true;
    eleccion_.practica = OptionPractica_->isChecked();
    // What stands in the boxes of a real system stays remembered as it was.
    if (eleccion_.practica) {
        eleccion_.rol = TextoDelModelo(Rol_->currentData().toString());
        return true;
    }
    if (!TodosSePuedenMandar()) return false;
    const bool directo = OptionServidor_->isChecked();
    parametros_.servidor = directo ? Cortado(*Servidor_) : std::string();
    parametros_.numeroDeSistema = Cortado(*NumeroDeSistema_);
    parametros_.servidorDeMensajes = directo ? std::string() : Cortado(*ServidorDeMensajes_);
    parametros_.sistema = Cortado(*Sistema_);
    parametros_.grupo = Cortado(*Grupo_);
    parametros_.ruta = Cortado(*Ruta_);
    parametros_.cliente = Cortado(*Cliente_);
    parametros_.usuario = Cortado(*Usuario_);
    parametros_.clave = TextoDelModelo(Clave_->text());
    parametros_.idioma = Mayusculas(Cortado(*Idioma_));
    return true;
}

}  // namespace qor
