#include "editor/help_pages.h"

#include <algorithm>
#include <array>
#include <vector>

namespace qor {

namespace {

struct Entrada {
    PaginaDeAyuda pagina;
    std::vector<std::string_view> nombres;
};

const std::vector<Entrada> paginas = {
    {700, {"DescripcionStatus", "Description", "Functional", "HScroll1", "ModuleCombo", "Notes", "PrioridadCombo", "Technical"}},
    {701,
     {"DiaCheck",
      "QORCheck",
      "ArchivosCheck",
      "TCodeCheck",
      "StatusCheck",
      "GeneracionAutomatica",
      "GeneracionManual",
      "NombreManual",
      "ProcesarTodoOpt",
      "ProcesarParteOpt",
      "SpaceCode",
      "CheckActivateNamingConventions",
      "GSprefijo",
      "GNprefijo",
      "GTprefijo",
      "LSprefijo",
      "LNprefijo",
      "LTprefijo",
      "GCprefijo",
      "PSprefijo",
      "PNprefijo",
      "OptionEncodingNone",
      "OptionEncodingDefault",
      "OptionEncodingNonUnicode",
      "EncodingAdditional",
      "OptionEncodingAdditional",
      "OptionWS_UPLOAD",
      "OptionGUI_UPLOAD"}},
    {702, {"FormMostrarTextos", "Generar"}},
    {703, {"ReporteTrans", "ExaminarReporte", "ImportTrans", "GenerarInfoCampos", "ImportInfo", "RunBDCEditor"}},
    {704, {"AnchoFijo", "ArchivoFuente", "ClienteOp", "DelimTab", "FileParameterCh", "ServidorOp", "TablaCh"}},
    {705, {"NewDef"}},
    {706, {"Autofill"}},
    {707, {"AOption", "CallTransaction", "EOption", "NOption"}},
    {708, {"OtherSource"}},
    {709, {"PreviewButton", "TextoDeEstructuras", "CerrarEstructuras"}},
    {710, {"Programa"}},
    {712, {"Text1", "Text2"}},
    {713, {"Text3", "Text4", "Text5", "Text6"}},
    {715, {"BuscarArchivo", "BuscarTransaccion", "TextoBuscado"}},
    {716, {"UndoButton"}},
    {717, {"DownButton", "UpButton"}},
    {722, {"Conditions"}},
    {724, {"NewButton", "OpenButton", "PrintButton", "SaveButton"}},
    {"data-preview.html", {"DataPreviewButton", "FormDatos"}},
    {"data-source.html", {"FormConsultaOrigen", "FormConsultadeEliminar"}},
    {"documents.html", {"FormDirectorios", "FormEjemplos", "FormPrinters", "PaginaDeInicio"}},
    {"file-grid.html", {"FormCamposQueFaltan"}},
    {"options.html", {"FormLenguaje", "FormSelectLanguage"}},
    {"program-grid.html", {"FormBAPI", "FormBAPIFields", "FormTrans"}},
    {"rehearsal.html", {"RehearseButton", "FormEnsayo"}},
    {"tools.html", {"FormABAP", "FormImport", "FormLogon"}}};

// "Text5_3" is the control Text5.
std::string_view SinLinea(std::string_view control) {
    return control.starts_with("Text") ? control.substr(0, control.find('_')) : control;
}

}  // namespace

std::optional<PaginaDeAyuda> PaginaDe(std::string_view nombre) {
    const auto sinLinea = SinLinea(nombre);
    for (const auto& [pagina, nombres] : paginas) {
        if (std::find(nombres.begin(), nombres.end(), sinLinea) != nombres.end()) return pagina;
    }
    return std::nullopt;
}

PaginaDeAyuda PaginaDePestana(int pestana) {
    constexpr std::array<int, 4> deLasPestanas = {711, 701, 703, 700};
    return deLasPestanas.at(static_cast<std::size_t>(pestana));
}

}  // namespace qor
