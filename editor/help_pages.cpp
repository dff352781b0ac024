#include "editor/help_pages.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <unordered_map>

namespace qor {

namespace {

using Paginas = std::unordered_map<std::string_view, int>;

const Paginas& PaginasDeControles() {
    static const Paginas paginas = {
        {"DescripcionStatus", 700}, {"Description", 700}, {"Functional", 700}, {"HScroll1", 700},
        {"ModuleCombo", 700},       {"Notes", 700},       {"PrioridadCombo", 700}, {"Technical", 700},

        {"DiaCheck", 701},            {"QORCheck", 701},               {"ArchivosCheck", 701},
        {"TCodeCheck", 701},          {"StatusCheck", 701},            {"GeneracionAutomatica", 701},
        {"GeneracionManual", 701},    {"NombreManual", 701},           {"ProcesarTodoOpt", 701},
        {"ProcesarParteOpt", 701},    {"SpaceCode", 701},              {"CheckActivateNamingConventions", 701},
        {"GSprefijo", 701},           {"GNprefijo", 701},              {"GTprefijo", 701},
        {"LSprefijo", 701},           {"LNprefijo", 701},              {"LTprefijo", 701},
        {"GCprefijo", 701},           {"PSprefijo", 701},              {"PNprefijo", 701},
        {"OptionEncodingNone", 701},  {"OptionEncodingDefault", 701},  {"OptionEncodingNonUnicode", 701},
        {"EncodingAdditional", 701},  {"OptionEncodingAdditional", 701},
        {"OptionWS_UPLOAD", 701},     {"OptionGUI_UPLOAD", 701},

        {"Generar", 702},

        {"ReporteTrans", 703},      {"ExaminarReporte", 703}, {"ImportTrans", 703},
        {"GenerarInfoCampos", 703}, {"ImportInfo", 703},      {"RunBDCEditor", 703},

        {"AnchoFijo", 704},       {"ArchivoFuente", 704}, {"ClienteOp", 704}, {"DelimTab", 704},
        {"FileParameterCh", 704}, {"ServidorOp", 704},    {"TablaCh", 704},

        {"NewDef", 705},        {"Autofill", 706},
        {"AOption", 707},       {"CallTransaction", 707}, {"EOption", 707}, {"NOption", 707},
        {"OtherSource", 708},   {"PreviewButton", 709},   {"Programa", 710},
        {"Text1", 712},         {"Text2", 712},
        {"Text3", 713},         {"Text4", 713},           {"Text5", 713},   {"Text6", 713},
        {"Contenido", 714},
        {"BuscarArchivo", 715}, {"BuscarTransaccion", 715}, {"TextoBuscado", 715},
        {"UndoButton", 716},    {"DownButton", 717},      {"UpButton", 717},
        {"Conditions", 722},
        {"NewButton", 724},     {"OpenButton", 724},      {"PrintButton", 724}, {"SaveButton", 724},
    };
    return paginas;
}

// "Text5_3" is the control Text5.
std::string_view SinLinea(std::string_view control) {
    return control.starts_with("Text") ? control.substr(0, control.find('_')) : control;
}

}  // namespace

int PaginaDeAyuda(std::string_view control, int pestana) {
    const auto pagina = PaginasDeControles().find(SinLinea(control));
    if (pagina != PaginasDeControles().end()) return pagina->second;
    constexpr std::array<int, 4> deLasPestanas = {711, 701, 703, 700};
    return deLasPestanas.at(static_cast<std::size_t>(pestana));
}

}  // namespace qor
