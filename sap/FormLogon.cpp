#include "sap/FormLogon.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <initializer_list>
#include <utility>

#include "base/code_page.h"
#include "base/qt/text.h"
#include "base/text.h"
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

FormLogon::FormLogon(ParametrosDeLogon& parametros, const TextosIdioma& textos, Vista& vista, QWidget* padre)
    : Dialogo(textos, "FormLogon", padre), parametros_(parametros), vista_(vista) {
    setWindowTitle(Literal("Log on to an SAP system"));
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(CrearSistema());
    orden->addWidget(CrearUsuario());
    OK_ = NuevoBoton("OK", Literal("OK"));
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
    connect(OptionServidor_, &QRadioButton::toggled, this, &FormLogon::Habilitar);
    Habilitar();
    PonerTamano(70, 22);
    // What is missing of a logon that was made before is the password alone.
    (TodosLlenos({Cliente_, Usuario_}) ? Clave_ : Servidor_)->setFocus();
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

QWidget* FormLogon::CrearSistema() {
    auto* const marco = NuevoMarco("FrameSistema", Literal("System"));
    OptionServidor_ = new QRadioButton(Literal("&Application server"), marco);
    OptionServidor_->setObjectName(QStringLiteral("OptionServidor"));
    OptionMensajes_ = new QRadioButton(Literal("&Message server and logon group"), marco);
    OptionMensajes_->setObjectName(QStringLiteral("OptionMensajes"));
    const bool porMensajes = parametros_.servidor.empty() && !parametros_.servidorDeMensajes.empty();
    (porMensajes ? OptionMensajes_ : OptionServidor_)->setChecked(true);
    Servidor_ = NuevaCaja("Servidor", parametros_.servidor);
    NumeroDeSistema_ = NuevaCaja("NumeroDeSistema", parametros_.numeroDeSistema, largoDeNumero);
    ServidorDeMensajes_ = NuevaCaja("ServidorDeMensajes", parametros_.servidorDeMensajes);
    Sistema_ = NuevaCaja("Sistema", parametros_.sistema, largoDeSistema);
    Grupo_ = NuevaCaja("Grupo", parametros_.grupo);
    Ruta_ = NuevaCaja("Ruta", parametros_.ruta);
    Ruta_->setToolTip(Literal("A router string with a password (/W/ or /P/) is used for this logon, but not remembered."));
    auto* const rejilla = new QGridLayout(marco);
    rejilla->addWidget(OptionServidor_, 0, 0, 1, 2);
    LlenarFilas(rejilla, 1,
                {{"ServidorLabel", "&Host:", Servidor_}, {"NumeroDeSistemaLabel", "System &number:", NumeroDeSistema_}});
    rejilla->addWidget(OptionMensajes_, 3, 0, 1, 2);
    LlenarFilas(rejilla, 4,
                {{"ServidorDeMensajesLabel", "H&ost:", ServidorDeMensajes_},
                 {"SistemaLabel", "&System name:", Sistema_},
                 {"GrupoLabel", "Logon &group:", Grupo_},
                 {"RutaLabel", "SAP &router:", Ruta_}});
    return marco;
}

QWidget* FormLogon::CrearUsuario() {
    auto* const marco = NuevoMarco("FrameUsuario", Literal("User"));
    Cliente_ = NuevaCaja("Cliente", parametros_.cliente, largoDeCliente);
    Usuario_ = NuevaCaja("Usuario", parametros_.usuario);
    Clave_ = NuevaCaja("Clave", {});
    Clave_->setEchoMode(QLineEdit::Password);
    Idioma_ = NuevaCaja("Idioma", parametros_.idioma, largoDeIdioma);
    auto* const rejilla = new QGridLayout(marco);
    LlenarFilas(rejilla, 0,
                {{"ClienteLabel", "&Client:", Cliente_},
                 {"UsuarioLabel", "&User:", Usuario_},
                 {"ClaveLabel", "&Password:", Clave_},
                 {"IdiomaLabel", "&Language:", Idioma_}});
    return marco;
}

void FormLogon::LlenarFilas(QGridLayout* rejilla, int primera, std::initializer_list<Fila> filas) {
    for (const auto& [nombre, rotulo, caja] : filas) {
        rejilla->addWidget(NuevoRotulo(nombre, Literal(rotulo), caja), primera, 0);
        rejilla->addWidget(caja, primera++, 1);
    }
    rejilla->setColumnStretch(1, 1);
}

bool FormLogon::Completo() const {
    const bool sistema = OptionServidor_->isChecked() ? TodosLlenos({Servidor_, NumeroDeSistema_})
                                                      : TodosLlenos({ServidorDeMensajes_, Sistema_, Grupo_});
    return sistema && TodosLlenos({Cliente_, Usuario_, Clave_});
}

void FormLogon::Habilitar() {
    const bool directo = OptionServidor_->isChecked();
    for (auto* const caja : {Servidor_, NumeroDeSistema_}) caja->setEnabled(directo);
    for (auto* const caja : {ServidorDeMensajes_, Sistema_, Grupo_}) caja->setEnabled(!directo);
    OK_->setEnabled(Completo());
}

// The rows of the dialog name their boxes.
bool FormLogon::TodosSePuedenMandar() {
    for (const auto* const rotulo : findChildren<QLabel*>()) {
        auto* const caja = qobject_cast<QLineEdit*>(rotulo->buddy());
        if (caja == nullptr || !caja->isEnabled() || SePuedeMandar(*caja)) continue;
        caja->setFocus();
        caja->selectAll();
        const QString nombre = rotulo->text().remove(QLatin1Char('&')).remove(QLatin1Char(':'));
        vista_.Advertir(MensajeLiteral(TextoDelModelo(
            Literal("The field \"%1\" holds a character that can't be sent to the system, so nothing was sent. Please correct it.")
                .arg(nombre))));
        return false;
    }
    return true;
}

bool FormLogon::PuedeCerrar() {
    if (!std::exchange(aceptado_, false)) return true;
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
