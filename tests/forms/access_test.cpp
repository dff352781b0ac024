#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <map>
#include <string>

#include "app/qt/help_window.h"
#include "tests/forms/all_dialogs.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/forms/principal_fixture.h"

namespace qor {
namespace {

using pruebas::DialogoAbierto;
using pruebas::ProgramaDePrueba;
using pruebas::TodosLosDialogos;

// What people who work by keys or by a screen reader need, in every window and language.
class Acceso : public ::testing::TestWithParam<const char*> {};

QString Letra(const QString& texto) {
    const auto sinDobles = QString(texto).remove(QLatin1String("&&"));
    const auto lugar = sinDobles.indexOf(QLatin1Char('&'));
    return lugar < 0 ? QString() : sinDobles.mid(lugar + 1, 1).toUpper();
}

// The letters of a window or menu, each with what bears it.
class Letras {
public:
    void Tomar(const QString& texto, bool obligada) {
        const QString letra = Letra(texto);
        if (letra.isEmpty()) {
            EXPECT_FALSE(obligada) << texto.toStdString() << " has no letter";
            return;
        }
        const auto [otro, nueva] = usadas_.emplace(letra, texto);
        EXPECT_TRUE(nueva) << letra.toStdString() << ": " << otro->second.toStdString() << " and " << texto.toStdString();
    }

private:
    std::map<QString, QString> usadas_;
};

void MirarMenu(const QMenu& menu) {
    SCOPED_TRACE("menu " + menu.title().toStdString());
    Letras letras;
    for (const auto* const accion : menu.actions()) {
        if (accion->isSeparator() || !accion->isVisible()) continue;
        letras.Tomar(accion->text(), true);
        if (accion->menu() != nullptr) MirarMenu(*accion->menu());
    }
}

bool TomaTabulador(const QWidget& control) {
    return control.isVisible() && control.isEnabled() && (control.focusPolicy() & Qt::TabFocus) != 0 &&
           control.focusProxy() == nullptr;
}

// The part of a window in which two controls part ways, and where each of them is in it.
struct Vecinos {
    QRect uno, otro;
};

Vecinos Separados(const QWidget& uno, const QWidget& otro) {
    const QWidget* a = &uno;
    const QWidget* comun = uno.parentWidget();
    while (comun != nullptr && !comun->isAncestorOf(&otro)) {
        a = comun;
        comun = comun->parentWidget();
    }
    const QWidget* b = &otro;
    while (b->parentWidget() != nullptr && b->parentWidget() != comun) b = b->parentWidget();
    return {a->geometry(), b->geometry()};
}

bool SeLeeAntes(const QWidget& uno, const QWidget& otro) {
    if (uno.isAncestorOf(&otro) || otro.isAncestorOf(&uno)) return true;
    const auto [a, b] = Separados(uno, otro);
    const int alto = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top());
    const bool mismaLinea = alto > std::min(a.height(), b.height()) / 2;
    const bool columnaSiguiente = a.right() <= b.left();
    return columnaSiguiente || (mismaLinea ? a.left() <= b.left() : a.top() <= b.top());
}

void MirarControles(const QWidget& ventana, const QWidget& parte) {
    const QWidget* anterior = nullptr;
    for (QWidget* control = parte.nextInFocusChain(); control != &parte; control = control->nextInFocusChain()) {
        if (!parte.isAncestorOf(control) || !TomaTabulador(*control) || control->window() != &ventana) continue;
        auto* const leido = QAccessible::queryAccessibleInterface(control);
        EXPECT_FALSE(leido->text(QAccessible::Name).isEmpty())
            << control->objectName().toStdString() << " (" << control->metaObject()->className()
            << ") has no name for a screen reader";
        if (anterior != nullptr) {
            EXPECT_TRUE(SeLeeAntes(*anterior, *control))
                << control->objectName().toStdString() << " comes behind " << anterior->objectName().toStdString();
        }
        anterior = control;
    }
}

TEST_P(Acceso, OfDialogs) {
    TodosLosDialogos todos(pruebas::datos + "/language.txt", GetParam());
    for (const auto& dialogo : todos.Crear()) {
        SCOPED_TRACE(dialogo->objectName().toStdString());
        const DialogoAbierto abierto(*dialogo);
        MirarControles(*dialogo, *dialogo);
        dialogo->reject();
    }
}

TEST_P(Acceso, OfTheMainForm) {
    ProgramaDePrueba p;
    ElegirIdioma(*p.programa, GetParam());
    p.principal->RefrescarIdioma();
    Letras deLaBarra;
    for (const auto* const accion : p.principal->menuBar()->actions()) {
        if (accion->menu() != nullptr) MirarMenu(*accion->menu());
    }
    auto* const paginas = p.Control<QTabWidget>("SSTab1");
    auto* const deOpciones = p.Control<QTabWidget>("SSTab2");
    for (int i = 0; i < paginas->count(); ++i) {
        for (int j = 0; j < (i == 1 ? deOpciones->count() : 1); ++j) {
            p.LaVentana().SSTab1 = i;
            p.LaVentana().SSTab2 = j;
            p.principal->Sincronizar();
            QApplication::processEvents();
            SCOPED_TRACE(paginas->tabText(i).toStdString() + " " + std::to_string(j));
            MirarControles(*p.principal, *p.principal->centralWidget());
            // The letters of the menu bar are taken by it on every page.
            Letras letras;
            for (const auto* const accion : p.principal->menuBar()->actions()) letras.Tomar(accion->text(), true);
            for (const auto* const control : p.principal->centralWidget()->findChildren<QWidget*>()) {
                const auto* const rotulo = qobject_cast<const QLabel*>(control);
                const bool conLetra = rotulo != nullptr ? rotulo->buddy() != nullptr : control->inherits("QAbstractButton");
                if (control->isVisible() && conLetra) letras.Tomar(control->property("text").toString(), false);
            }
        }
    }
}

std::string PaginaAbierta(const QWidget& ventana) {
    const auto* const ayuda = ventana.findChild<VentanaDeAyuda*>();
    if (ayuda == nullptr || !ayuda->isVisible()) return "";
    return ayuda->findChild<QTextBrowser*>()->source().fileName().toStdString();
}

TEST(Help, OfButtonsUnderThePointerAndOfDialogs) {
    const ProgramaDePrueba p;
    const struct {
        const char* boton;
        const char* pagina;
    } casos[] = {{"NewDef", "definitions.html"},
                 {"PreviewButton", "structure-preview.html"},
                 {"UndoButton", "undo.html"},
                 {"DownButton", "move-fields.html"},
                 {"SaveButton", "documents.html"},
                 {"RehearseButton", "rehearsal.html"},
                 {"DataPreviewButton", "data-preview.html"}};
    for (const auto& [boton, pagina] : casos) {
        auto* const control = p.Control(boton);
        if (auto* const ayuda = p.principal->findChild<VentanaDeAyuda*>()) ayuda->hide();  // it would lie above the button
        QCursor::setPos(control->mapToGlobal(control->rect().center()));
        QTest::keyClick(p.principal.get(), Qt::Key_F1);
        EXPECT_EQ(PaginaAbierta(*p.principal), pagina);
        // "What's this?" asks with a click.
        p.Control<QAction>("Contenido")->trigger();
        QHelpEvent clic(QEvent::WhatsThis, control->rect().center(), QCursor::pos());
        QApplication::sendEvent(control, &clic);
        EXPECT_EQ(PaginaAbierta(*p.principal), pagina);
    }
    QCursor::setPos(p.principal->mapToGlobal(p.principal->rect().bottomRight()));
    for (const auto& [accion, pagina] :
         {std::pair{"Directorios", "documents.html"}, {"LengSeleccionar", "options.html"}, {"AboutOption", "contents.html"}}) {
        p.ConDialogo([&] { p.Control<QAction>(accion)->trigger(); },
                     [&](QDialog& dialogo) {
                         QTest::keyClick(&dialogo, Qt::Key_F1);
                         EXPECT_EQ(PaginaAbierta(dialogo), pagina);
                     });
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Acceso, ::testing::Values("English", "Espanol"));

}  // namespace
}  // namespace qor
