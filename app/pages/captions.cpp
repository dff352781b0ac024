#include "app/pages/captions.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <array>
#include <string>

#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/text.h"
#include "editor/window.h"

namespace qor {

namespace {

struct Rotulo {
    const char* control;
    int numero;
};

constexpr Rotulo rotulos[] = {
    {"OtherSource", 10},
    {"Otro1", 11},
    {"Otro2", 12},
    {"FileOption", 13},
    {"NewOption", 14},
    {"OpenOption", 15},
    {"SaveOption", 16},
    {"SaveAsOption", 17},
    {"PrintOption", 18},
    {"ExitOption", 19},
    {"HelpOption", 20},
    {"Contenido", 21},
    {"AboutOption", 23},
    {"LangOption", 24},
    {"LengSeleccionar", 155},
    {"Generar", 26},
    {"FileSpecification", 27},
    {"TransactionSpecification", 28},
    {"EnterCode", 29},
    {"SaveCode", 30},
    {"F5Code", 31},
    {"CreateCode", 25},
    {"ColumnName", 32},
    {"FileWidth", 33},
    {"ProgramCol", 34},
    {"DynproCol", 35},
    {"FieldCol", 36},
    {"Col2Name", 37},
    {"SourceField", 39},
    {"ServidorOp", 40},
    {"ClienteOp", 41},
    {"TablaCh", 42},
    {"CallTransaction", 43},
    {"AddF4", 204},
    {"ModeAsParameter", 220},
    {"GenerateProgram", 44},
    {"FunctionalLabel", 52},
    {"TechnicalLabel", 53},
    {"DescriptionLabel", 54},
    {"NotesLabel", 55},
    {"TitulosFrame", 60},
    {"DiaCheck", 61},
    {"QORCheck", 62},
    {"ArchivosCheck", 63},
    {"TCodeCheck", 64},
    {"StatusCheck", 65},
    {"BDCFrame", 66},
    {"GeneracionAutomatica", 67},
    {"GeneracionManual", 68},
    {"CamposLabel", 69},
    {"ProcesarTodoOpt", 70},
    {"ProcesarParteOpt", 71},
    {"SpaceCodeLabel", 72},
    {"CTFrame", 73},
    {"ModuleLabel", 74},
    {"PrioridadLabel", 75},
    {"AvanceLabel", 76},
    {"StatusLabel", 77},
    {"Atencion", 78},
    {"FrameImportarTransacciones", 79},
    {"ImportTrans", 81},
    {"FileParameterCh", 82},
    {"FrameImportarAncho", 83},
    {"GenerarInfoCampos", 84},
    {"ImportInfo", 85},
    {"ExaminarFuente", 80},
    {"ExaminarPrograma", 80},
    {"ExaminarReporte", 80},
    {"FrameEdicion", 86},
    {"Autofill", 87},
    {"RemoveBlankOption", 88},
    {"ButtonAddOperation", 113},
    {"Conditions", 89},
    {"AnchoFijo", 90},
    {"DelimTab", 91},
    {"AOption", 157},
    {"NOption", 158},
    {"EOption", 159},
    {"RunBDCEditor", 160},
    {"InputFrame", 165},
    {"MultipleFilesOption", 166},
    {"OneFileOption", 167},
    {"IdentificadoresLabel", 168},
    {"IdentificadoresExplicacion", 169},
    {"ErrorHandlingCheck", 178},
    {"ErroresExplicacion", 179},
    {"TablaZLabel", 180},
    {"SafeCallTransactionCheck", 181},
    {"CheckLogon", 243},
    {"CheckSHDB", 244},
    {"CheckLogonErrors", 247},
    {"Directorios", 182},
    {"then1", 185},
    {"CommitCheck", 190},
    {"ProgIDLabel", 199},
    {"ScreenCam", 200},
    {"FrameConexion", 222},
    {"FrameOnline", 223},
    {"ButtonOnlineSHDB", 224},
    {"ButtonOnlineSM35", 225},
    {"ButtonOnlineAnchos", 226},
    {"ButtonOnlinePublish", 227},
    {"ButtonOnlinePublishLocal", 228},
    {"FrameClientSide", 238},
    {"OptionWS_UPLOAD", 239},
    {"OptionGUI_UPLOAD", 240},
    {"FrameServerSide", 248},
    {"FrameNamingConventions", 249},
    {"CheckActivateNamingConventions", 250},
    {"LabelNamingConventions", 251},
};

constexpr Rotulo consejos[] = {
    {"NewDef", 1},   {"NewButton", 2},  {"OpenButton", 3}, {"SaveButton", 4},    {"PrintButton", 5},
    {"UpButton", 6}, {"DownButton", 7}, {"UndoButton", 8}, {"PreviewButton", 9}, {"ButtonAddOperation", 194},
};

struct RotuloDePalabra {
    const char* control;
    int palabra;
};

constexpr RotuloDePalabra palabras[] = {
    {"RehearseOption", palabra::OrdenEnsayar},
    {"OpenExampleOption", palabra::OrdenAbrirUnEjemplo},
    {"Connection", palabra::MenuConexion},
    {"WhatsThisOption", palabra::QueEsEsto},
    {"RecentOption", palabra::MenuDeRecientes},
    {"EditOption", palabra::MenuEdicion},
    {"UndoOption", palabra::Deshacer},
    {"UpOption", palabra::SubirElCampo},
    {"DownOption", palabra::BajarElCampo},
    {"InsertOption", palabra::InsertarUnaFila},
    {"DeleteOption", palabra::BorrarLaFila},
    {"NoteOption", palabra::OrdenNota},
    {"CodeOption", palabra::OrdenCodigoDeConversion},
    {"DefinitionsOption", palabra::VariablesYDefiniciones},
    {"PreviewOption", palabra::VistaPreviaDeLasEstructuras},
    {"DataPreviewOption", palabra::OrdenVistaDeLosDatos},
    {"FindOption", palabra::OrdenBuscar},
    {"FindNextOption", palabra::OrdenBuscarElSiguiente},
    {"CutOption", palabra::OrdenCortar},
    {"CopyOption", palabra::OrdenCopiar},
    {"PasteOption", palabra::OrdenPegar},
    {"RowsOption", palabra::MenuFilas},
    {"CopyRowsOption", palabra::OrdenCopiarLasFilas},
    {"InsertBlankOption", palabra::OrdenInsertarFilaEnBlanco},
    {"RowUpOption", palabra::OrdenSubirLaFila},
    {"RowDownOption", palabra::OrdenBajarLaFila},
    {"ConditionOption", palabra::OrdenCondiciones},
    {"GoToFieldOption", palabra::OrdenIrAlCampoDelArchivo},
    {"MissingFieldsOption", palabra::OrdenAgregarLosCamposQueFaltan},
    {"AddOperationOption", palabra::OrdenAgregarUnaOperacion},
    {"SourceOption", palabra::OrdenOrigenDeLosDatos},
    {"GenerateOption", palabra::OrdenGenerarElPrograma},
    {"FindingsOption", palabra::OrdenHallazgos},
    {"NextFindingOption", palabra::HallazgoSiguiente},
    {"PreviousFindingOption", palabra::HallazgoAnterior},
    {"StructuresOption", palabra::OrdenEstructurasAbajo},
    {"Logon", palabra::OrdenConectar},
    {"Logoff", palabra::OrdenDesconectar},
    {"KeepRecordingOption", palabra::OrdenGuardarUnaGrabacion},
    {"ButtonLogon", palabra::OrdenConectar},
    {"ButtonLogoff", palabra::OrdenDesconectar},
    {"LineaArchivoLabel", palabra::Fila},
    {"LineaTransaccionLabel", palabra::Fila},
    {"ArrastreLabel", palabra::ArrastreAUnValor},
    {"FrameContabilizacion", palabra::Contabilizacion},
    {"FrameErrores", palabra::TratamientoDeErrores},
    {"OptionEncodingNone", palabra::SinAdicion},
    {"OptionEncodingAdditional", palabra::OtraAdicion},
    {"LabelGSprefix", palabra::VariablesGlobales},
    {"LabelGNprefix", palabra::NumerosGlobales},
    {"LabelGTprefix", palabra::TablasInternasGlobales},
    {"LabelLSprefix", palabra::VariablesYParametrosLocales},
    {"LabelLNprefix", palabra::NumerosLocales},
    {"LabelLTprefix", palabra::TablasInternasLocales},
    {"LabelGCprefix", palabra::ConstantesGlobales},
    {"LabelPSprefix", palabra::ParametrosDeLaPantalla},
    {"LabelPNprefix", palabra::ParametrosNumericosDeLaPantalla},
};

constexpr RotuloDePalabra consejosDePalabra[] = {
    {"DataPreviewButton", palabra::VistaDeLosDatos},
    {"ExpandirCampo", palabra::DarMasEspacioALosCampos},
    {"LineaArchivo", palabra::DobleClicALaPrimeraFila},
    {"LineaTransaccion", palabra::DobleClicALaPrimeraFila},
    {"EnterCode", palabra::ArrastrarComoOKCode},
    {"SaveCode", palabra::ArrastrarComoOKCode},
    {"F5Code", palabra::ArrastrarComoOKCode},
    {"CreateCode", palabra::ArrastrarComoOKCode},
    {"RehearseButton", palabra::EnsayarEnElSistemaDePractica},
};

struct TitulosDePestanas {
    const char* control;
    std::initializer_list<int> numeros;
};

const TitulosDePestanas pestanas[] = {{"SSTab1", {56, 59, 58, 57}}, {"SSTab2", {177, 236, 237}}};

void PonerRotulo(QObject* control, const QString& texto) {
    if (auto* const boton = qobject_cast<QAbstractButton*>(control)) return boton->setText(texto);
    if (auto* const rotulo = qobject_cast<QLabel*>(control)) return rotulo->setText(texto);
    if (auto* const grupo = qobject_cast<QGroupBox*>(control)) return grupo->setTitle(texto);
    if (auto* const menu = qobject_cast<QMenu*>(control)) return menu->setTitle(texto);
    if (auto* const accion = qobject_cast<QAction*>(control)) accion->setText(texto);
}

void PonerConsejo(const Controles& controles, const char* nombre, const QString& texto) {
    auto* const control = controles.Buscar<QWidget>(nombre);
    if (auto* const boton = qobject_cast<QToolButton*>(control); boton != nullptr && boton->defaultAction() != nullptr) {
        boton->defaultAction()->setToolTip(texto);
    } else {
        control->setToolTip(texto);
    }
}

void PonerNumerados(const Controles& controles, const TextosIdioma& textos) {
    for (const auto& rotulo : rotulos) PonerRotulo(controles.Buscar(rotulo.control), TextoQt(textos.Texto(rotulo.numero)));
    for (const auto& consejo : consejos) PonerConsejo(controles, consejo.control, TextoQt(textos.Texto(consejo.numero)));
    for (const auto& [control, numeros] : pestanas) {
        auto* const tabla = controles.Buscar<QTabWidget>(control);
        int pagina = 0;
        for (const int numero : numeros) tabla->setTabText(pagina++, TextoQt(textos.Texto(numero)));
    }
}

void PonerPalabras(const Controles& controles, const TextosIdioma& textos) {
    for (const auto& rotulo : palabras) PonerRotulo(controles.Buscar(rotulo.control), Palabra(textos, rotulo.palabra));
    for (const auto& consejo : consejosDePalabra) PonerConsejo(controles, consejo.control, Palabra(textos, consejo.palabra));
    // Words of ABAP are the same in every language.
    PonerRotulo(controles.Buscar("OptionEncodingDefault"), QStringLiteral("ENCODING DEFAULT"));
    PonerRotulo(controles.Buscar("OptionEncodingNonUnicode"), QStringLiteral("ENCODING NON-UNICODE"));
    for (int i = 0; i < lineasArchivo; ++i) {
        auto* const codigo = controles.Buscar<QToolButton>(QByteArray("ABAP_") + QByteArray::number(i));
        codigo->setText(TextoQt(textos.Texto(38)));
        codigo->setToolTip(Palabra(textos, palabra::CodigoDeConversionDelCampo));
    }
    auto* const buscado = controles.Buscar<QLineEdit>("TextoBuscado");
    buscado->setPlaceholderText(Palabra(textos, palabra::TextoABuscar));
    buscado->setAccessibleName(buscado->placeholderText());
    const auto nombrarConOpcion = [&](const char* boton, int opcion) {
        controles.Buscar<QWidget>(boton)->setAccessibleName(TextoQt(textos.Texto(80)) + QLatin1Char(' ') + Palabra(textos, opcion));
    };
    nombrarConOpcion("ExaminarFuente", palabra::OpcionArchivoOTablaDeEntrada);
    nombrarConOpcion("ExaminarPrograma", palabra::OpcionArchivoDeProgramaAGenerar);
    controles.Buscar<QWidget>("ExpandirCampo")->setAccessibleName(Palabra(textos, palabra::DarMasEspacioALosCampos));
    controles.Buscar<QToolBar>("BarraDeBotones")->setWindowTitle(Palabra(textos, palabra::Herramientas));
    auto* const prioridad = controles.Buscar<QComboBox>("PrioridadCombo");
    prioridad->clear();
    for (const int prioridadDicha : {palabra::PrioridadAlta, palabra::PrioridadMedia, palabra::PrioridadBaja})
        prioridad->addItem(Palabra(textos, prioridadDicha));
    prioridad->setCurrentIndex(-1);
}

}  // namespace

void PonerRotulos(const Controles& controles, const TextosIdioma& textos) {
    PonerNumerados(controles, textos);
    PonerPalabras(controles, textos);
}

}  // namespace qor
