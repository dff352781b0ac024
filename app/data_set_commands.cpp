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
    auto orden = ordenes.raiz.Suborden("dataset", "Look into a data set, or replace a field's value in it");
    orden.Pie(
        "Without --field the kind of the file, its transactions and its fields are printed. The file is replaced only with --yes.");
    orden.Dato("FILE", argumentos->archivo, "A batch-input session file, or a download of the error table").Obligatoria();
    auto campo = orden.Dato("--field", argumentos->campo, "Field to change").Tipo("F");
    auto nuevo = orden.Dato("--new", argumentos->nuevo, "Its new value").Tipo("V");
    campo.Necesita(nuevo);
    nuevo.Necesita(campo);
    orden.Dato("--transaction", argumentos->transaccion, "Only in this transaction").Tipo("T").Necesita(campo);
    auto entero = orden.Dato("--whole", argumentos->entero, "Only values that contain OLD, as a whole");
    auto parte = orden.Dato("--part", argumentos->parte, "Every occurrence of OLD in the value");
    entero.Tipo("OLD").Necesita(campo).Excluye(parte);
    parte.Tipo("OLD").Necesita(campo);
    orden.Dato("--if", argumentos->condiciones, "Condition: F=V for an equal value, F~V for one that contains V; at most three")
        .Tipo("F=V")
        .Necesita(campo)
        .UnaPorVez();
    orden.Marca("--once", argumentos->unaVez, "A condition holds when one occurrence passes; else all must").Necesita(campo);
    orden.AlElegir([argumentos, &comando = ordenes.comando] {
        if (argumentos->condiciones.size() > maximoCondiciones) throw MalUso("--if: at most three conditions");
        comando = [argumentos](const ContextoDeComando& contexto) { return Dataset(contexto, *argumentos); };
    });
}

}  // namespace qor
