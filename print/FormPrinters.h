#pragma once

#include <QStringList>
#include <filesystem>
#include <memory>
#include <optional>

#include "base/qt/dialog.h"
#include "base/view.h"
#include "print/device.h"

class QListWidget;
class QPrinter;

namespace qor {

class CajaDeLinea;

// Asks for the printer of a document: one of the machine's, or a PDF file.
class FormPrinters : public Dialogo {
    Q_OBJECT
public:
    // `sugerido` is the name of a PDF file; `ultima` what was chosen the time before, as `Eleccion` tells it.
    FormPrinters(const TextosIdioma& textos, Vista& vista, std::filesystem::path sugerido, const QString& ultima, QWidget* padre);
    ~FormPrinters() override;

    bool Cancelado() const { return result() != QDialog::Accepted; }

    // Ready to print. Null when the dialog was cancelled, or a PDF file was chosen.
    std::unique_ptr<QPrinter> Impresora();

    // What stands chosen: the name of a printer, or that of the PDF file, which no printer has.
    QString Eleccion() const;

    // The chosen PDF file.
    std::optional<std::filesystem::path> ArchivoPDF() const;

private:
    void CrearControles(const QString& ultima);
    void Elegir();

    Vista& vista_;
    std::filesystem::path sugerido_;
    QStringList impresoras_;  // as listed; the PDF file stands behind them
    std::unique_ptr<QPrinter> impresora_;
    std::optional<std::filesystem::path> archivoPDF_;

    QListWidget* PrintersList_ = nullptr;
    CajaDeLinea* Copias_ = nullptr;
};

// The printer of a run: asked for in FormPrinters, opened, and closed with the object.
class ImpresionEnPapel {
public:
    // `memoria` is the file that remembers what was chosen; empty for none.
    ImpresionEnPapel(const TextosIdioma& textos, Vista& vista, std::filesystem::path sugerido, std::filesystem::path memoria,
                     QWidget* padre);
    ~ImpresionEnPapel();
    ImpresionEnPapel(const ImpresionEnPapel&) = delete;
    ImpresionEnPapel& operator=(const ImpresionEnPapel&) = delete;

    // Asks. Null when the user cancels, or the printer or the PDF file can't be opened; the view has shown why then. The device
    // throws FalloDeArchivo when it ends and the PDF file can't be written.
    Dispositivo* Elegir();

private:
    const TextosIdioma& textos_;
    Vista& vista_;
    std::filesystem::path sugerido_;
    std::filesystem::path memoria_;
    QWidget* padre_;
    std::unique_ptr<QPrinter> impresora_;
    std::unique_ptr<Dispositivo> dispositivo_;
};

}  // namespace qor
