#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/examples.h"
#include "base/messages.h"

class QKeyEvent;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace qor {

// What the main form shows while it holds nothing: the documents that were open last, the examples, and the ways to begin. A key
// that writes something begins a specification, and is its first letter.
class PaginaDeInicio : public QWidget {
    Q_OBJECT
public:
    struct Acciones {
        std::function<void()> empezar;  // an empty specification
        std::function<void()> abrir;    // asks for a document
        std::function<void(const std::filesystem::path& documento)> abrirReciente;
        std::function<void(const EjemploIncluido& ejemplo)> abrirEjemplo;
        std::function<void(const QKeyEvent& tecla)> escribir;
    };

    PaginaDeInicio(const TextosIdioma& textos, std::vector<EjemploIncluido> ejemplos, Acciones acciones, QWidget* padre);

    void MostrarRecientes(const std::vector<std::filesystem::path>& documentos);
    void RefrescarIdioma();
    // The keyboard goes to the document that was open last, or to the first way to begin.
    void TomarTeclado();

protected:
    bool eventFilter(QObject* control, QEvent* evento) override;

private:
    QPushButton* NuevoBoton(const char* nombre, const std::function<void()>& accion);
    QListWidget* NuevaLista(const char* nombre);
    void ElegirReciente(const QListWidgetItem& linea);
    void ElegirEjemplo(const QListWidgetItem& linea);

    const TextosIdioma& textos_;
    std::vector<EjemploIncluido> ejemplos_;
    Acciones acciones_;
    QPushButton* nueva_;
    QPushButton* abrir_;
    QLabel* rotuloDeRecientes_;
    QLabel* rotuloDeEjemplos_;
    QLabel* explicacion_;
    QListWidget* recientes_;
    QListWidget* listaDeEjemplos_;
};

}  // namespace qor
