#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>

#include "app/command.h"
#include "app/console_view.h"
#include "base/text.h"
#include "dataset/data_set.h"

namespace qor {

namespace {

constexpr std::size_t maximoCondiciones = 3;

struct Argumentos {
    std::string archivo;
    std::optional<std::string> campo;
    std::optional<std::string> nuevo;
    std::optional<std::string> transaccion;
    std::optional<std::string> entero;
    std::optional<std::string> parte;
    std::vector<std::string> condiciones;
    bool unaVez = false;
};

// "F=V" asks for an equal value, "F~V" for one that contains V.
CondicionDeDatos LeerCondicion(const std::string& texto) {
    const auto signo = texto.find_first_of("=~");
    if (signo == std::string::npos) throw MalUso("--if: " + texto + " is neither F=V nor F~V");
    return {DeArgumento(texto.substr(0, signo)), texto[signo] == '=', Mayusculas(DeArgumento(texto.substr(signo + 1)))};
}

Reemplazo LeerReemplazo(const Argumentos& argumentos) {
    Reemplazo reemplazo;
    reemplazo.campo = DeArgumento(*argumentos.campo);
    reemplazo.nuevo = DeArgumento(*argumentos.nuevo);
    if (argumentos.entero) reemplazo.modo = ModoDeReemplazo::Todo;
    if (argumentos.parte) reemplazo.modo = ModoDeReemplazo::Parte;
    reemplazo.viejo = Mayusculas(DeArgumento(argumentos.entero.value_or(argumentos.parte.value_or(""))));
    if (argumentos.transaccion) reemplazo.transaccion = DeArgumento(*argumentos.transaccion);
    for (std::size_t i = 0; i < argumentos.condiciones.size(); ++i) {
        reemplazo.condiciones[i] = LeerCondicion(argumentos.condiciones[i]);
    }
    reemplazo.unaVez = argumentos.unaVez;
    return reemplazo;
}

void ImprimirContenido(const JuegoDeDatos& datos, std::ostream& salida) {
    salida << NombreDeTipo(datos.tipo) << '\n';
    for (const auto& transaccion : datos.transacciones) salida << "  " << TextoDeTerminal(transaccion) << '\n';
    salida << '\n';
    for (const auto& campo : datos.campos) salida << "  " << TextoDeTerminal(campo) << '\n';
}

bool Dataset(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    std::optional<Reemplazo> reemplazo;
    if (argumentos.campo) reemplazo = LeerReemplazo(argumentos);
    const std::filesystem::path archivo = argumentos.archivo;
    auto datos = ExaminarJuegoDeDatos(archivo, contexto.textos, contexto.vista);
    if (!datos) return false;
    if (!reemplazo) {
        ImprimirContenido(*datos, contexto.salida);
        return true;
    }
    reemplazo->nuevo = AjustarNuevoValor(*datos, reemplazo->campo, reemplazo->nuevo, contexto.textos, contexto.vista);
    return ReemplazarValores(archivo, *datos, *reemplazo, contexto.textos, contexto.vista);
}

}  // namespace

void AgregarComandosDeDatos(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto* const orden = ordenes.programa.add_subcommand("dataset", "Look into a data set, or replace a field's value in it");
    orden->footer(
        "Without --field the kind of the file, its transactions and its fields are printed. The file is replaced only with --yes.");
    orden->add_option("FILE", argumentos->archivo, "A batch-input session file, or a download of the error table")->required();
    auto* const campo = orden->add_option("--field", argumentos->campo, "Field to change")->type_name("F");
    auto* const nuevo = orden->add_option("--new", argumentos->nuevo, "Its new value")->type_name("V");
    campo->needs(nuevo);
    nuevo->needs(campo);
    orden->add_option("--transaction", argumentos->transaccion, "Only in this transaction")->type_name("T")->needs(campo);
    auto* const entero = orden->add_option("--whole", argumentos->entero, "Only values that contain OLD, as a whole");
    auto* const parte = orden->add_option("--part", argumentos->parte, "Every occurrence of OLD in the value");
    entero->type_name("OLD")->needs(campo)->excludes(parte);
    parte->type_name("OLD")->needs(campo);
    orden
        ->add_option("--if", argumentos->condiciones,
                     "Condition: F=V for an equal value, F~V for one that contains V; at most three")
        ->type_name("F=V")
        ->needs(campo)
        ->allow_extra_args(false)
        ->take_all();
    orden->add_flag("--once", argumentos->unaVez, "A condition holds when one occurrence passes; else all must")->needs(campo);
    orden->callback([argumentos, &comando = ordenes.comando] {
        if (argumentos->condiciones.size() > maximoCondiciones) throw CLI::ValidationError("--if", "at most three conditions");
        comando = [argumentos](const ContextoDeComando& contexto) { return Dataset(contexto, *argumentos); };
    });
}

}  // namespace qor
