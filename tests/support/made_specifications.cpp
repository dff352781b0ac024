#include "tests/support/made_specifications.h"

#include "base/text.h"
#include "model/operations.h"

namespace qor::pruebas {

namespace {

constexpr const char* nombreBAPI = "BAPI_SOMETHING_WITH_A_LONG_NAME";

// Adds rows behind those of the program side.
void AgregarFilas(Hecha& h, std::initializer_list<std::string_view> filas) {
    for (const auto fila : filas) h.prueba.PonerTransaccion(h.Espec().FilasTransaccion(), fila);
}

// The marks of a step-loop. The variants have new screens or rows, and begin in the first or the second row.
std::string Cabeza(const Hecha& h, const char* archivo, const char* claves) {
    return std::string("|note!1 1!2") + archivo + (h.variante % 2 == 0 ? "!30" : "!31") + "!4DESC" +
           (h.variante < 2 ? "!50" : "!51") + "!65!7" + claves;
}

void PonerCampos(Hecha& h) {
    const char* const ancho = h.variante == 1 ? "300" : "6";
    h.prueba.Archivo({"ORDERNO|10", "ITEM|" + std::string(ancho), "MATERIAL|18", "KIND|4", "ANOTHER_RATHER_LONG_FIELD_NAME|30"});
    auto& archivo = h.Espec().TablaArchivo;
    if (h.variante == 2) archivo[0].ancho = "260";
    if (h.variante != 3) archivo[3].conversion = "'A' @ 'OR'\r\nTRANSLATE #KIND TO UPPER CASE.";
    if (h.variante != 0) archivo[2].conversion = "'1' @ 'ONE'";
    if (h.variante == 2) archivo[0].conversion = "* why\r\n#ORDERNO = '2'.";
}

void PonerTransaccion(Hecha& h) {
    AgregarFilas(
        h, {"TRANS|VA01" + std::string(h.variante == 1 ? "" : ";COND"), "SAPMV45A|101;COND", "||VBAK-VBELN|ORDERNO",
            "||VBAK-VKORG;COND|@P_VKORG", "||VBAK-AUART|KIND", "||BDC_OKCODE;COND|'/00'",
            "SAPMV45A|4001" + std::string(h.variante == 0 ? "" : ";COND"), "||VBAP-POSNR(1)|ITEM" + Cabeza(h, "ITEMS", ",ORDERNO"),
            "||VBAP-MATNR(1);COND|MATERIAL", "||VBAP-WERKS(1)|'0001'", "||VBAP-VKORG(1)|@P_VKORG", "||BDC_OKCODE|'/00'",
            "||BDC_OKCODE|'/11'", "SAPMV45A|102", "||VBAK-KUNNR|KIND"});
}

// Fields whose statements are as long as a line, and one column shorter and longer; a constant behind them and one in front.
void PonerBAPI(Hecha& h) {
    const bool conTabla = h.variante % 2 == 1;
    AgregarFilas(h, {std::string("BAPI|") + nombreBAPI, "||HEAD-FIRST|'1'", "||HEAD-DOC_TYPE|KIND", "||HEAD-CONSTANT|'x'",
                     "||HEAD-VARIABLE;COND|@P_VKORG", "||HEAD-SALES_ORG;COND|KIND", "||HEAD-ORDER|ORDERNO"});
    for (const std::size_t largo : {47U, 48U, 49U}) AgregarFilas(h, {"||HEAD-" + std::string(largo - 5, 'Z') + "|ORDERNO"});
    for (const std::size_t largo : {44U, 45U, 46U}) AgregarFilas(h, {"||HEAD-" + std::string(largo - 5, 'Y') + ";COND|ORDERNO"});
    if (conTabla) {
        AgregarFilas(h, {"||LINES-ITM_NUMBER(1)|LINENO" + Cabeza(h, "LINES", ",ORDERNO"), "||LINES-PLANT(1);COND|'0001'",
                         "||LINES-VERY_LONG_FIELD_NAME_OF_LINES(1)|YET_ANOTHER_RATHER_LONG_NAME"});
        const int f = h.Espec().FilasArchivo();
        h.prueba.PonerArchivo(f, "LINENO|5");
        h.prueba.PonerArchivo(f + 1, "YET_ANOTHER_RATHER_LONG_NAME|31");
    }
    AgregarFilas(h, {"||HEAD2-VERY_LONG_FIELD_NAME_OF_HEAD|ANOTHER_RATHER_LONG_FIELD_NAME"});
    const char* const devueltos[] = {"\r\n     TABLES\r\n       RETURN = RETURN.",
                                     "\r\n     IMPORTING\r\n       RETURN = RETURN.\r\n", ".",
                                     "\r\n     IMPORTING\r\n       A = HEAD\r\n     TABLES\r\n       RETURN = RETURN."};
    h.Espec().TablaBAPIs[0] = {"ANOTHER", "CALL FUNCTION 'ANOTHER'."};
    h.Espec().TablaBAPIs[1] = {nombreBAPI, "CALL FUNCTION '" + std::string(nombreBAPI) +
                                               "'\r\n     EXPORTING\r\n       HEAD = HEAD" + devueltos[h.variante]};
}

void LlenarOrdenes(Hecha& h) {
    PonerCampos(h);
    PonerTransaccion(h);
}

void LlenarBAPI(Hecha& h) {
    PonerCampos(h);
    PonerBAPI(h);
}

void LlenarAmbos(Hecha& h) {
    PonerCampos(h);
    PonerTransaccion(h);
    PonerBAPI(h);
}

// Groups whose keys are fields of other groups, or their own in a row in front; records of many widths; a code in front of its
// group.
void LlenarGrupos(Hecha& h) {
    h.prueba.Archivo({"ORDERNO|10", "KIND|4", "ITEM|6", "MATERIAL|18", "SCHEDULE|4", "QUANTITY|13", "TEXT|300"});
    if (h.variante == 1) h.Espec().TablaArchivo[4].ancho = "270";
    if (h.variante > 1) h.Espec().TablaArchivo[6].ancho = "255";
    h.Espec().TablaArchivo[4].conversion = h.variante == 2 ? "'1' @ 'ONE'" : "";
    h.Espec().TablaArchivo[1].nota = std::string(69, 'n') + "otes";
    AgregarFilas(
        h, {"TRANS|VA01", "SAPMV45A|101", "||VBAK-VBELN|ORDERNO|a note", "||VBAK-AUART|KIND", "||BDC_OKCODE|'/00'", "SAPMV45A|4001",
            "||VBAP-MATNR(1)|MATERIAL",
            "||VBAP-POSNR(1)|ITEM" + Cabeza(h, "ITEMS", h.variante == 3 ? ",ORDERNO,MATERIAL" : ",ORDERNO"), "||BDC_OKCODE|'/00'",
            "SAPMV45A|4500", "||BDC_OKCODE;COND|'/05'", "||VBEP-ETENR(1)|SCHEDULE" + Cabeza(h, "SCHEDULES", ",ORDERNO,ITEM"),
            "||VBEP-WMENG(1)|QUANTITY", "TRANS|VA02", "SAPMV45A|102", "||VBAK-VBELN|ORDERNO", "SAPMV45A|4900",
            "||TEXT-LINE(1)|TEXT" + Cabeza(h, "TEXTS", ",ORDERNO"), "||BDC_OKCODE|'=SICH'"});
}

void LlenarMuchas(Hecha& h) {
    const auto enCifras = [](int n) { return std::to_string(n); };
    h.prueba.Archivo({"ORDERNO|10"});
    for (int n = 1; n <= 11; ++n) {
        h.prueba.PonerArchivo(n, "FIELD" + enCifras(n) + "|" + enCifras(n == 5 ? 250 : 5));
        AgregarFilas(
            h, {"TRANS|VA0" + enCifras(n % 3), "SAPMV45A|" + enCifras(100 + n), "||VBAK-VBELN|ORDERNO", "SAPMV45A|4001",
                "||VBAP-FIELD" + enCifras(n) + "(1)|FIELD" + enCifras(n) + Cabeza(h, "ITEMS", ",ORDERNO"), "||BDC_OKCODE|'/00'"});
    }
}

// What has no field, no group or nothing but heads.
void LlenarPobre(Hecha& h) {
    if (h.variante == 0) h.prueba.Archivo({"A|1"});
    AgregarFilas(h, {"TRANS|T"});
    if (h.variante < 3) AgregarFilas(h, {"P|1", "||F|'x'"});
    if (h.variante == 0) AgregarFilas(h, {"||G|A"});
    if (h.variante == 2) AgregarFilas(h, {"TRANS|U"});
}

void QuitarClaves(Hecha& h) {
    for (auto& fila : h.Espec().TablaTransaccion) fila.nota.resize(std::min(fila.nota.size(), fila.nota.find("!7") + 2));
}

void PonerArchivoUnico(Hecha& h, const char* comienzo) {
    h.Opc().MultipleFilesOption = false;
    for (int n = 0; n <= ContarStepLoops(h.Espec()); ++n) {
        h.Opc().Identificadores += (n > 0 ? "," : "") + (comienzo + std::string(1, static_cast<char>('A' + n)));
    }
    if (h.variante > 1) QuitarClaves(h);
}

void PonerErrores(Hecha& h) {
    h.Opc().ErrorHandlingCheck = 1;
    h.Opc().ProgID = "12";
}

void PonerLlamada(Hecha& h, int repetidas) {
    h.Opc().CallTransaction = 1;
    h.Opc().SafeCallTransactionCheck = repetidas;
}

void PonerTitulos(Hecha& h, int dia, int archivo, int archivos, int codigos, int estado) {
    h.Opc().DiaCheck = dia;
    h.Opc().QORCheck = archivo;
    h.Opc().ArchivosCheck = archivos;
    h.Opc().TCodeCheck = codigos;
    h.Opc().StatusCheck = estado;
}

void NoPonerNada(Hecha& /*h*/) {}

// What depends on other choices: texts with names of the report, and names of macros.
void Terminar(Hecha& h) {
    auto& e = h.Espec();
    const auto nombres = SetearConvencionesDeNombres(h.preferencias);
    if (e.FilasArchivo() > 1) {
        e.TablaCondiciones[0] = {"COND", "* when\r\nIF #ORDERNO NE SPACE.\r\n\r\n  " + nombres.LSprefijo +
                                             "RESULT = " + nombres.GCprefijo + "YES.\r\nENDIF."};
        e.TablaCondiciones[1] = {"OTHER", "WRITE / 'a text that is much longer than the fifty columns of a line of code'."};
        e.VariablesGlobales =
            "PARAMETERS: P_VKORG(4).\r\nDATA: HEAD LIKE BAPISDHEAD, HEAD2 LIKE BAPISDHEAD,\r\n      LINES LIKE BAPIITEMIN OCCURS 0 "
            "WITH HEADER LINE.\r\n\r\nDATA: RETURN LIKE BAPIRET2 OCCURS 0 WITH HEADER LINE.\r\n* " +
            std::string(66, 'a') + " bbb cc d eeee\r\n* " + std::string(69, 'c') + " " + std::string(70, 'd');
    }
    const char* const macro[] = {"DEFINE NO_RETURN.", "No test.", "Add one.", "END-OF-DEFINITION."};
    for (int n = 0; n < 4; ++n) h.prueba.textos.Poner(509 + n, macro[n]);
}

}  // namespace

const std::vector<DocumentoHecho>& DocumentosHechos() {
    static const std::vector<DocumentoHecho> documentos = {{"orders", LlenarOrdenes, 3}, {"bapi", LlenarBAPI, 3},
                                                           {"both", LlenarAmbos, 3},     {"groups", LlenarGrupos, 3},
                                                           {"many", LlenarMuchas, 2},    {"poor", LlenarPobre, 2}};
    return documentos;
}

const std::vector<Eleccion>& EleccionesHechas() {
    static const std::vector<Eleccion> elecciones = {
        {{"", NoPonerNada},  // the input
         {"tabs", [](Hecha& h) { h.Opc().AnchoFijo = false; }},
         {"server", [](Hecha& h) { h.Opc().ClienteOp = false; }},
         {"one", [](Hecha& h) { PonerArchivoUnico(h, ""); }},
         {"one-server", [](Hecha& h) { PonerArchivoUnico(h, "01"), h.Opc().ClienteOp = false; }},
         {"table", [](Hecha& h) { h.Opc().ClienteOp = false, h.Opc().TablaCh = 1; }},
         {"own",
          [](Hecha& h) {
              h.Espec().OrigenUsuario = true;
              h.Espec().OrigenVariables = "DATA: OWN.\r\n\r\nDATA: OWN2.";
              h.Espec().OrigenSource = "PERFORM FILL.\r\n\r\nIF OWN = '" + std::string(50, 'x') + "' AND OWN2 = 'y'.\r\nENDIF.";
              h.Espec().OrigenForms = "FORM FILL.\r\n\r\nENDFORM.";
          }}},
        {{"", NoPonerNada}, {"call", [](Hecha& h) { PonerLlamada(h, 0); }}, {"call-safe", [](Hecha& h) { PonerLlamada(h, 1); }}},
        {{"", NoPonerNada}, {"errors", PonerErrores}},
        {{"", NoPonerNada},  // the display mode
         {"mode-n", [](Hecha& h) { h.Opc().Modo = 'N'; }},
         {"mode-e-fixed", [](Hecha& h) { h.Opc().Modo = 'E', h.Opc().ModeAsParameter = 0; }}},
        {{"", NoPonerNada}, {"ws", [](Hecha& h) { h.preferencias.OptionWS_UPLOAD = true; }}},
        {{"", NoPonerNada},  // naming conventions
         {"names", [](Hecha& h) { h.preferencias.CheckActivateNamingConventions = 1; }},
         {"own-names",
          [](Hecha& h) {
              h.preferencias = {h.preferencias.OptionWS_UPLOAD,
                                h.preferencias.AdicionesDataset,
                                1,
                                "A ",
                                "B",
                                "C",
                                " D",
                                "E",
                                "F",
                                "G",
                                "H",
                                "I"};
          }}},
        {{"", NoPonerNada},  // names of files
         {"fixed-file", [](Hecha& h) { h.Opc().FileParameterCh = 0; }},
         {"help", [](Hecha& h) { h.Opc().AddF4 = 1; }},
         {"help-fixed", [](Hecha& h) { h.Opc().AddF4 = 1, h.Opc().FileParameterCh = 0; }}},
        {{"", NoPonerNada},  // empty fields
         {"filled", [](Hecha& h) { h.Opc().ProcesarTodoOpt = false; }},
         {"filled-code", [](Hecha& h) { h.Opc().ProcesarTodoOpt = false, h.Opc().SpaceCode = " $ "; }}},
        {{"", NoPonerNada}, {"no-commit", [](Hecha& h) { h.Opc().CommitCheck = 0; }}},
        {{"", NoPonerNada},  // the banner
         {"bare", [](Hecha& h) { PonerTitulos(h, 0, 0, 0, 0, 0); }},
         {"bare-files", [](Hecha& h) { PonerTitulos(h, 0, 0, 1, 1, 0); }},
         {"no-files", [](Hecha& h) { PonerTitulos(h, 1, 1, 0, 0, 1); }}},
        {{"", NoPonerNada},  // the session
         {"manual", [](Hecha& h) { h.Opc().GeneracionAutomatica = false, h.Opc().NombreManual = "MINE"; }},
         {"manual-blank", [](Hecha& h) { h.Opc().GeneracionAutomatica = false, h.Opc().NombreManual = " "; }}},
        {{"", NoPonerNada}, {"no-encoding", [](Hecha& h) { h.preferencias.AdicionesDataset = "NONE"; }}},
        {{"", [](Hecha& h) { h.Opc().ArchivoFuente = "zorders "; }},  // the source
         {"path", [](Hecha& h) { h.Opc().ArchivoFuente = "C:\\Orders.TXT"; }},
         {"path-41", [](Hecha& h) { h.Opc().ArchivoFuente = "C:\\" + std::string(34, 'o') + ".txt"; }},
         {"path-42", [](Hecha& h) { h.Opc().ArchivoFuente = "C:\\" + std::string(35, 'p') + ".txt"; }}},
        {{"", NoPonerNada},  // the document
         {"unsaved", [](Hecha& h) { h.ruta.clear(); }},
         {"spaced", [](Hecha& h) { h.ruta = "/" + std::string(40, 'x') + "/Carga de clientes.qor"; }}},
    };
    return elecciones;
}

void Llenar(Hecha& hecha, const DocumentoHecho& documento, const std::vector<int>& niveles) {
    hecha.variante = niveles.back();
    documento.llenar(hecha);
    const auto& elecciones = EleccionesHechas();
    for (std::size_t i = 0; i < elecciones.size(); ++i) elecciones[i][static_cast<std::size_t>(niveles[i])].poner(hecha);
    Terminar(hecha);
}

std::string NombreDe(const DocumentoHecho& documento, const std::vector<int>& niveles) {
    std::string nombre = documento.nombre + std::to_string(niveles.back());
    const auto& elecciones = EleccionesHechas();
    for (std::size_t i = 0; i < elecciones.size(); ++i) {
        if (niveles[i] > 0) nombre += std::string(" ") + elecciones[i][static_cast<std::size_t>(niveles[i])].nombre;
    }
    return nombre;
}

}  // namespace qor::pruebas
