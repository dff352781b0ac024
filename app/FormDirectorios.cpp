#include "app/FormDirectorios.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/chosen_path.h"
#include "base/code_page.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/text.h"
#include "base/words.h"

namespace qor {

namespace {

// A box that is left blank keeps what the setting was.
void Tomar(std::filesystem::path& ajuste, const CajaDeLinea* caja) {
    const std::string nuevo(Recortar(caja->Texto()));
    if (!nuevo.empty() && nuevo != TextoDeRuta(ajuste)) ajuste = RutaDelSistema(nuevo);
}

}  // namespace

FormDirectorios::FormDirectorios(const TextosIdioma& textos, Vista& vista, AjustesDelPrograma& ajustes, QWidget* padre)
    : Dialogo(textos, "FormDirectorios", padre), vista_(vista), ajustes_(ajustes) {
    setWindowTitle(Palabra(palabra::DirectoriosYArchivos));
    auto* const rejilla = new QGridLayout;
    documentos_ = NuevaFila(rejilla, 0, palabra::DirectorioDeLosDocumentos, "DirectorioDocumentos",
                            TextoDeRuta(ajustes.DirectorioDocumentos), ClaseDeArchivo::CarpetaDeDocumentos);
    anchos_ = NuevaFila(rejilla, 1, palabra::ArchivoDeLosAnchosDeCampos, "ArchivoAnchos", TextoDeRuta(ajustes.ArchivoAnchos),
                        ClaseDeArchivo::AnchosDeCampos);
    catalogo_ =
        NuevaFila(rejilla, 2, palabra::CatalogoDeBAPIs, "ArchivoBAPI", TextoDeRuta(ajustes.ArchivoBAPI), ClaseDeArchivo::Catalogo);
    editor_ = NuevaFila(rejilla, 3, palabra::EditorDeTextosParaLosReports, "EditorDeTextos", ajustes.EditorDeTextos,
                        ClaseDeArchivo::EditorDeTextos);
    editor_->setPlaceholderText(Palabra(palabra::UnoConocidoQueEsteInstalado));
    rejilla->setColumnStretch(1, 1);
    auto* const aceptar = NuevoBoton("OK", Palabra(palabra::Aceptar));
    aceptar->setDefault(true);
    auto* const cancelar = NuevoBoton("Cancel", Rotulo(187));
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    auto* const orden = new QVBoxLayout(this);
    orden->addLayout(rejilla);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({aceptar, cancelar}));
    PonerTamano(90, 10);
}

CajaDeLinea* FormDirectorios::NuevaFila(QGridLayout* orden, int fila, int rotulo, const char* nombre, const std::string& valor,
                                        ClaseDeArchivo clase) {
    auto* const caja = new CajaDeLinea(this);
    caja->setObjectName(QString::fromLatin1(nombre));
    caja->PonerTexto(valor);
    auto* const examinar = NuevoBoton((std::string("Examinar") + nombre).c_str(), Rotulo(80));
    examinar->setAccessibleName(Rotulo(80) + QLatin1Char(' ') + SinLetra(Palabra(rotulo)));
    connect(examinar, &QPushButton::clicked, this, [this, caja, clase] {
        const PedidoDeArchivo pedido{clase, todosLosArchivos, RutaDelSistema(caja->Texto())};
        const bool carpeta = clase == ClaseDeArchivo::CarpetaDeDocumentos;
        const auto elegido = carpeta ? vista_.ElegirCarpeta(pedido) : vista_.ElegirParaAbrir(pedido);
        if (const auto texto = ComoTexto(elegido, vista_)) caja->PonerTexto(*texto);
    });
    orden->addWidget(NuevoRotulo((std::string(nombre) + "Label").c_str(), Palabra(rotulo), caja), fila, 0);
    orden->addWidget(caja, fila, 1);
    orden->addWidget(examinar, fila, 2);
    return caja;
}

void FormDirectorios::accept() {
    Tomar(ajustes_.DirectorioDocumentos, documentos_);
    Tomar(ajustes_.ArchivoAnchos, anchos_);
    Tomar(ajustes_.ArchivoBAPI, catalogo_);
    ajustes_.EditorDeTextos = Recortar(editor_->Texto());
    Dialogo::accept();
}

}  // namespace qor
