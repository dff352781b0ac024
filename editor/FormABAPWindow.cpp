#include "editor/FormABAPWindow.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/failure_trap.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr int paginaDeCodigo = 719;
constexpr int paginaDeFormulas = 720;
constexpr int paginaDeTablas = 721;
constexpr const char* formulaEnReposo = "A  u  t  o  -  f  o  r  m  u  l  a";
constexpr int letrasDeCombo = 30;

}  // namespace

FormABAPWindow::FormABAPWindow(Ventana& ventana, int fila, const std::filesystem::path& directorioDeDatos, const AbrirAyuda& ayuda,
                               QWidget* padre)
    : Dialogo(ventana.textos, "ABAPWindow", padre), ventana_(ventana), estado_(AbrirCodigo(ventana, fila, directorioDeDatos)) {
    PonerTitulo(estado_.titulo);
    CrearControles(ayuda);
    PonerTamano(110, 34);
    ABAPText_->setFocus();
}

void FormABAPWindow::IrA(int linea) { ABAPText_->IrALinea(linea); }

void FormABAPWindow::CrearControles(const AbrirAyuda& ayuda) {
    ABAPText_ = new CajaDeTexto(this);
    ABAPText_->setObjectName(QStringLiteral("ABAPText"));
    ABAPText_->setAccessibleName(windowTitle());
    ABAPText_->MostrarComoABAP();
    ABAPText_->PonerTexto(estado_.ABAPText);

    FormulaCombo_ = new QComboBox(this);
    FormulaCombo_->setObjectName(QStringLiteral("FormulaCombo"));
    FormulaCombo_->setPlaceholderText(QString::fromLatin1(formulaEnReposo));
    FormulaCombo_->setAccessibleName(QString::fromLatin1(formulaEnReposo));
    FormulaCombo_->setMinimumContentsLength(letrasDeCombo);
    for (const auto& formula : estado_.formulas) FormulaCombo_->addItem(TextoQt(formula.nombre));
    FormulaCombo_->setCurrentIndex(-1);
    auto* const AplicarBoton = NuevoBoton("Aplicar", Rotulo(109));
    connect(AplicarBoton, &QPushButton::clicked, this, &FormABAPWindow::Aplicar);

    auto* const ABAPHelp = NuevaAyuda("ABAPHelp", Rotulo(110), ayuda, paginaDeCodigo);
    auto* const FormulasHelp = NuevaAyuda("FormulasHelp", Rotulo(111), ayuda, paginaDeFormulas);
    auto* const TablasHelp = NuevaAyuda("TablasHelp", Rotulo(112), ayuda, paginaDeTablas);
    auto* const Command1 = NuevoBoton("Command1", Palabra(palabra::Aceptar));
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);

    auto* const formulas = new QHBoxLayout;
    formulas->addWidget(FormulaCombo_, 1);
    formulas->addWidget(AplicarBoton);
    auto* const orden = new QVBoxLayout(this);
    orden->addLayout(formulas);
    orden->addWidget(ABAPText_, 1);
    orden->addWidget(NuevaExplicacion("ABAPLine1", Rotulo(105)));
    orden->addWidget(NuevaExplicacion("ABAPExceptuar", Rotulo(106)));
    orden->addWidget(NuevaExplicacion("ABAPLine2", Rotulo(107)));
    orden->addWidget(NuevaExplicacion("ABAPNotaPie", Rotulo(108)));
    orden->addLayout(FilaDeBotones({ABAPHelp, FormulasHelp, TablasHelp, Command1}, 3));
}

void FormABAPWindow::Aplicar() {
    estado_.ABAPText = ABAPText_->Texto();
    const auto antes = estado_.ABAPText.size();
    ConTrampa(ventana_.vista, [this] { AplicarFormula(ventana_, estado_, FormulaCombo_->currentIndex()); });
    if (estado_.ABAPText.size() == antes) return;
    ABAPText_->PonerTexto(estado_.ABAPText);
    FormulaCombo_->setCurrentIndex(-1);
}

bool FormABAPWindow::PuedeCerrar() {
    estado_.ABAPText = ABAPText_->Texto();
    bool cerrar = true;
    ConTrampa(ventana_.vista, [&] { cerrar = CerrarCodigo(ventana_, estado_); });
    return cerrar;
}

}  // namespace qor
