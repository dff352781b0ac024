#include "print/FormPrinters.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/text.h"
#include "base/words.h"
#include "print/page.h"
#include "print/qt/pdf_device.h"

namespace qor {

namespace {

constexpr int maximoDeDigitos = 2;
constexpr const char* eleccionDePDF = "/pdf";  // no printer has a name with a slash
constexpr const char* filtroDePDF = "PDF|*.pdf";

QString ClaveDeImpresora() { return QStringLiteral("print/printer"); }

QString ImpresoraDeAntes(const std::filesystem::path& memoria) {
    if (memoria.empty()) return {};
    return QSettings(NombreQt(memoria), QSettings::IniFormat).value(ClaveDeImpresora()).toString();
}

void RecordarImpresora(const std::filesystem::path& memoria, const QString& eleccion) {
    if (!memoria.empty()) QSettings(NombreQt(memoria), QSettings::IniFormat).setValue(ClaveDeImpresora(), eleccion);
}

std::string SoloDigitos(std::string_view texto) {
    std::string digitos(texto);
    std::erase_if(digitos, [](char c) { return c < '0' || c > '9'; });
    return digitos;
}

// Null when the file can't be made; the view has shown why then.
std::unique_ptr<DispositivoQt> NuevoPDF(const std::filesystem::path& archivo, Vista& vista) {
    try {
        return std::make_unique<DispositivoPDF>(archivo);
    } catch (const FalloDeArchivo& fallo) {
        vista.Advertir(ConDetalle(MensajeLiteral("The PDF file could not be opened."), fallo));
        return nullptr;
    }
}

}  // namespace

FormPrinters::FormPrinters(const TextosIdioma& textos, Vista& vista, std::filesystem::path sugerido, const QString& ultima,
                           QWidget* padre)
    : Dialogo(textos, "FormPrinters", padre),
      vista_(vista),
      sugerido_(std::move(sugerido)),
      impresoras_(QPrinterInfo::availablePrinterNames()) {
    setWindowTitle(Palabra(palabra::Impresoras));
    CrearControles(ultima);
    PonerTamano(56, 16);
}

FormPrinters::~FormPrinters() = default;

void FormPrinters::CrearControles(const QString& ultima) {
    PrintersList_ = new QListWidget(this);
    PrintersList_->setObjectName(QStringLiteral("PrintersList"));
    PrintersList_->addItems(impresoras_);
    PrintersList_->addItem(Palabra(palabra::ArchivoPDF));
    // The one of the time before, as long as there is it.
    const auto lugar = [this](const QString& nombre) {
        return nombre == QLatin1String(eleccionDePDF) ? static_cast<int>(impresoras_.size())
                                                      : static_cast<int>(impresoras_.indexOf(nombre));
    };
    const int deAntes = lugar(ultima);
    PrintersList_->setCurrentRow(deAntes >= 0 ? deAntes : std::max(0, lugar(QPrinterInfo::defaultPrinterName())));
    Copias_ = new CajaDeLinea(this);
    Copias_->setObjectName(QStringLiteral("Copias"));
    Copias_->setMaxLength(maximoDeDigitos);
    Copias_->PonerFiltro(SoloDigitos);
    Copias_->PonerTexto("1");
    Copias_->setMaximumWidth(AnchoDeLetras(8));
    auto* const PrintButton = NuevoBoton("PrintButton", Palabra(palabra::Imprimir));
    PrintButton->setDefault(true);
    auto* const CancelButton = NuevoBoton("CancelButton", Rotulo(187));
    connect(PrintButton, &QPushButton::clicked, this, &FormPrinters::Elegir);
    connect(PrintersList_, &QListWidget::itemDoubleClicked, this, &FormPrinters::Elegir);
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);

    auto* const copias = new QHBoxLayout;
    copias->addWidget(NuevoRotulo("CopiasLabel", Palabra(palabra::Copias), Copias_));
    copias->addWidget(Copias_);
    copias->addStretch();
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(NuevoRotulo("PrintersLabel", Palabra(palabra::Impresora), PrintersList_));
    orden->addWidget(PrintersList_, 1);
    orden->addLayout(copias);
    orden->addLayout(FilaDeBotones({PrintButton, CancelButton}));
}

void FormPrinters::Elegir() {
    const int fila = PrintersList_->currentRow();
    if (fila < 0) return;
    auto impresora = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (fila < impresoras_.size()) {
        impresora->setPrinterName(impresoras_.at(fila));
        impresora->setCopyCount(std::max(1, static_cast<int>(Numero(Copias_->Texto()))));
    } else {
        const auto archivo = vista_.ElegirParaGrabar({ClaseDeArchivo::PDF, filtroDePDF, {}, sugerido_});
        if (!archivo) return;
        archivoPDF_ = *archivo;
        impresora.reset();
    }
    impresora_ = std::move(impresora);
    accept();
}

QString FormPrinters::Eleccion() const {
    const int fila = PrintersList_->currentRow();
    return fila >= 0 && fila < impresoras_.size() ? impresoras_.at(fila) : QString::fromLatin1(eleccionDePDF);
}

std::optional<std::filesystem::path> FormPrinters::ArchivoPDF() const { return Cancelado() ? std::nullopt : archivoPDF_; }

std::unique_ptr<QPrinter> FormPrinters::Impresora() { return Cancelado() ? nullptr : std::move(impresora_); }

ImpresionEnPapel::ImpresionEnPapel(const TextosIdioma& textos, Vista& vista, std::filesystem::path sugerido,
                                   std::filesystem::path memoria, QWidget* padre)
    : textos_(textos), vista_(vista), sugerido_(std::move(sugerido)), memoria_(std::move(memoria)), padre_(padre) {}

ImpresionEnPapel::~ImpresionEnPapel() = default;

Dispositivo* ImpresionEnPapel::Elegir() {
    FormPrinters dialogo(textos_, vista_, sugerido_, ImpresoraDeAntes(memoria_), padre_);
    dialogo.exec();
    impresora_ = dialogo.Impresora();
    const auto archivo = dialogo.ArchivoPDF();
    if (!impresora_ && !archivo) return nullptr;
    RecordarImpresora(memoria_, dialogo.Eleccion());
    auto dispositivo = archivo ? NuevoPDF(*archivo, vista_) : std::make_unique<DispositivoQt>(*impresora_);
    if (!dispositivo) return nullptr;
    if (!dispositivo->Abierto()) {
        vista_.Advertir(MensajeLiteral("The printer could not be opened."));
        return nullptr;
    }
    dispositivo->AlAcabarLaPagina([&textos = textos_](Dispositivo& d) { PasarPagina(d, textos); });
    dispositivo_ = std::move(dispositivo);
    return dispositivo_.get();
}

}  // namespace qor
