#include "findings/place_words.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/words.h"

namespace qor {

namespace {

struct Nombre {
    std::string_view ingles;
    int palabra = 0;
};

struct NombreDeParte {
    Lugar::Parte parte;
    Nombre lado;
    std::array<Nombre, 5> columnas = {};
};

constexpr Nombre campo{"field", palabra::ColumnaCampo};
constexpr Nombre nota{"note", palabra::ColumnaNota};
constexpr Nombre nombre{"name", palabra::ColumnaNombre};

constexpr NombreDeParte partes[] = {
    {Lugar::Parte::Archivo,
     {"file side", palabra::LadoDelArchivo},
     {campo, {"width", palabra::ColumnaAncho}, nota, {"conversion", palabra::ColumnaConversion}}},
    {Lugar::Parte::Programa,
     {"program side", palabra::LadoDelPrograma},
     {{{"program", palabra::ColumnaPrograma}, {"dynpro", palabra::ColumnaDynpro}, campo, {"value", palabra::ColumnaValor}, nota}}},
    {Lugar::Parte::Condiciones, {"conditions", palabra::LadoCondiciones}, {nombre, {"text", palabra::ColumnaTexto}}},
    {Lugar::Parte::BAPIs, {"BAPIs", palabra::LadoBAPIs}, {nombre, {"call text", palabra::ColumnaTextoDeLlamada}}},
    {Lugar::Parte::VariablesGlobales, {"global definitions", palabra::LadoDefinicionesGlobales}},
    {Lugar::Parte::OrigenVariables, {"declarations of the data source", palabra::LadoDeclaracionesDelOrigen}},
    {Lugar::Parte::OrigenForms, {"forms of the data source", palabra::LadoRutinasDelOrigen}},
    {Lugar::Parte::OrigenSource, {"code of the data source", palabra::LadoCodigoDelOrigen}},
    {Lugar::Parte::Opcion, {"option", palabra::LadoOpcion}},
    {Lugar::Parte::Preferencia, {"setting", palabra::LadoAjuste}},
};

struct Rotulo {
    std::string_view control;
    Nombre nombre;
};

// The words of the screen.
constexpr Rotulo rotulos[] = {
    {"AddF4", {"F4 help for file names", palabra::OpcionAyudaF4}},
    {"ArchivoFuente", {"Input file or table", palabra::OpcionArchivoOTablaDeEntrada}},
    {"CallTransaction", {"Use CALL TRANSACTION", palabra::OpcionCallTransaction}},
    {"CheckActivateNamingConventions", {"Use naming conventions", palabra::OpcionUsarConvencionesDeNombres}},
    {"CommitCheck", {"COMMIT WORK after each record", palabra::OpcionCommitWork}},
    {"DelimTab", {"Tab-delimited fields", palabra::OpcionCamposSeparadosPorTabuladores}},
    {"DescripcionStatus", {"Status", palabra::OpcionEstado}},
    {"Description", {"Description", palabra::OpcionDescripcion}},
    {"EncodingAdditional", {"Other addition", palabra::OpcionOtraAdicion}},
    {"ErrorHandlingCheck", {"Keep failed records in an error table", palabra::OpcionConservarLosRegistros}},
    {"FileParameterCh", {"File name as parameter", palabra::OpcionNombreDeArchivoComoParametro}},
    {"Functional", {"Functional contact", palabra::OpcionContactoFuncional}},
    {"GCprefijo", {"Global constants", palabra::OpcionConstantesGlobales}},
    {"GNprefijo", {"Global numbers", palabra::OpcionNumerosGlobales}},
    {"GSprefijo", {"Global variables", palabra::OpcionVariablesGlobales}},
    {"GTprefijo", {"Global internal tables", palabra::OpcionTablasInternasGlobales}},
    {"Identificadores", {"Record identifiers", palabra::OpcionIdentificadoresDeRegistro}},
    {"LNprefijo", {"Local numbers", palabra::OpcionNumerosLocales}},
    {"LSprefijo", {"Local variables and parameters", palabra::OpcionVariablesLocales}},
    {"LTprefijo", {"Local internal tables", palabra::OpcionTablasInternasLocales}},
    {"ModeAsParameter", {"Call mode as parameter", palabra::OpcionModoDeLlamadaComoParametro}},
    {"NombreManual", {"Session name", palabra::OpcionNombreDelJuegoDeDatos}},
    {"Notes", {"Notes", palabra::OpcionNotas}},
    {"OneFileOption", {"All records in one file", palabra::OpcionTodosLosRegistrosEnUnArchivo}},
    {"PNprefijo", {"Numeric parameters of the selection screen", palabra::OpcionParametrosNumericos}},
    {"PSprefijo", {"Parameters of the selection screen", palabra::OpcionParametrosDePantalla}},
    {"ProgID", {"Number of this program in the table", palabra::OpcionNumeroDelPrograma}},
    {"Programa", {"Program file to generate", palabra::OpcionArchivoDeProgramaAGenerar}},
    {"SafeCallTransactionCheck", {"Put failed transactions into a session", palabra::OpcionJuegoDeLasErroneas}},
    {"SpaceCode", {"Code for an intended blank", palabra::OpcionCodigoParaUnBlancoIntencional}},
    {"TablaZ", {"Error table", palabra::OpcionTablaDeErrores}},
    {"Technical", {"Technical contact", palabra::OpcionContactoTecnico}},
};

const NombreDeParte* ParteDe(const Lugar& lugar) {
    const auto parte =
        std::find_if(std::begin(partes), std::end(partes), [&](const auto& una) { return una.parte == lugar.parte; });
    return parte == std::end(partes) ? nullptr : parte;
}

Nombre LadoDe(const Lugar& lugar) {
    const auto* const parte = ParteDe(lugar);
    return parte == nullptr ? Nombre{} : parte->lado;
}

Nombre ColumnaDe(const Lugar& lugar) {
    const auto* const parte = ParteDe(lugar);
    const auto columna = static_cast<std::size_t>(lugar.columna);
    return parte == nullptr || lugar.columna < 0 || columna >= parte->columnas.size() ? Nombre{} : parte->columnas[columna];
}

Nombre OpcionDe(const Lugar& lugar) {
    const auto* const rotulo =
        std::find_if(std::begin(rotulos), std::end(rotulos), [&](const Rotulo& uno) { return uno.control == lugar.Opcion(); });
    return rotulo == std::end(rotulos) ? Nombre{} : rotulo->nombre;
}

}  // namespace

std::string TextoDeLugar(const Lugar& lugar) {
    std::string texto(lugar.parte == Lugar::Parte::Ninguna ? "specification" : LadoDeLugar(lugar));
    if (lugar.opcion != nullptr) texto.append(" ").append(lugar.opcion);
    if (const auto rotulo = OpcionDe(lugar).ingles; !rotulo.empty()) texto.append(" (").append(rotulo).append(")");
    if (lugar.fila >= 0) texto += ", row " + std::to_string(lugar.fila);
    if (const auto columna = ColumnaDeLugar(lugar); !columna.empty()) texto.append(", ").append(columna);
    if (lugar.linea > 0) texto += ", line " + std::to_string(lugar.linea);
    return texto;
}

std::string_view LadoDeLugar(const Lugar& lugar) { return LadoDe(lugar).ingles; }
std::string_view ColumnaDeLugar(const Lugar& lugar) { return ColumnaDe(lugar).ingles; }

int PalabraDeLado(const Lugar& lugar) { return LadoDe(lugar).palabra; }
int PalabraDeColumna(const Lugar& lugar) { return ColumnaDe(lugar).palabra; }
int PalabraDeOpcion(const Lugar& lugar) { return OpcionDe(lugar).palabra; }

}  // namespace qor
