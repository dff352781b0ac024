#pragma once

#include <QUrl>
#include <QWidget>
#include <filesystem>
#include <string_view>

#include "base/messages.h"

class QTextBrowser;
class QToolButton;

namespace qor {

// A window that shows help pages, named by messages 700 to 724 of the language table and found below the data directory.
class VentanaDeAyuda : public QWidget {
    Q_OBJECT
public:
    VentanaDeAyuda(const TextosIdioma& textos, std::filesystem::path directorioDeDatos, QWidget* padre);

    // The page of a message, in front of all windows. The English page stands for one that a language lacks; one that is not there
    // either is named in its place.
    void MostrarPagina(int mensaje);
    // A page of the loaded language by its name, with the place in it behind "#". The contents where the page is not there.
    void MostrarPagina(std::string_view nombre);

    // The captions in the loaded language.
    void RefrescarIdioma();

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    QString EnDatos(const QString& nombre) const;
    QUrl DondeEste(const QUrl& pagina) const;
    void Traer();

    const TextosIdioma& textos_;
    std::filesystem::path directorioDeDatos_;
    QTextBrowser* navegador_;
    QToolButton* atras_;
    QToolButton* adelante_;
    QToolButton* contenido_;
    QToolButton* cerrar_;
};

}  // namespace qor
