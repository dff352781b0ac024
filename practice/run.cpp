#include "practice/run.h"

#include <memory>

#include "abap/short_dump.h"
#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

// A run from the compiled program to its end, whatever that is.
class Corrida {
public:
    Corrida(const PedidoDeCorrida& pedido, SistemaDePractica& sistema, Curso& curso, abap::SalidaDeLista& lista,
            VistaDeCorrida& vista)
        : pedido_(pedido), sistema_(sistema), curso_(curso), vista_(vista), entorno_(sistema.Entorno(lista, curso)) {}

    ~Corrida() {
        curso_.PonerEjecucion(nullptr);
        curso_.PonerDiario(nullptr);
        sistema_.Variables().PonerEjecucion(nullptr);
    }

    bool Correr(std::shared_ptr<const abap::Programa> programa) {
        abap::Ejecucion ejecucion(std::move(programa), entorno_, pedido_.limite);
        curso_.PonerEjecucion(&ejecucion);
        if (pedido_.diario) diario_ = std::make_unique<Diario>(*pedido_.diario);
        curso_.PonerDiario(diario_.get());
        try {
            return Preparar(ejecucion) && Ejecutar(ejecucion);
        } catch (const FalloDeEjecucion& fallo) {
            diario_.reset();
            curso_.PonerDiario(nullptr);
            sistema_.AbandonarUnidad();
            vista_.Termina(ejecucion);
            vista_.Falla(fallo);
            if (empezado_) vista_.Resumen(curso_.Cuenta());
            return false;
        }
    }

private:
    // INITIALIZATION and the selection screen. False where the report is not started.
    bool Preparar(abap::Ejecucion& ejecucion) {
        const bool bien = ConVolcado(ejecucion, [&] { ejecucion.Iniciar(); });
        if (!bien) {
            Comenzar(ejecucion);
            TerminarCon(ejecucion, false);
            return false;
        }
        try {
            LlenarParametros(ejecucion, pedido_.archivos, pedido_.parametros);
        } catch (const ParametroImposible&) {
            sistema_.AbandonarUnidad();
            throw;
        }
        if (const auto falta = ParametroSinValor(ejecucion); !falta.empty()) {
            sistema_.AbandonarUnidad();
            vista_.Rechaza("The parameter " + falta + " is obligatory and has no value. Give it one with --param " + falta +
                           "=VALUE, or with --file " + falta + "=PATH where it names a file.");
            return false;
        }
        Comenzar(ejecucion);
        return true;
    }

    void Comenzar(abap::Ejecucion& ejecucion) {
        sistema_.Variables().PonerEjecucion(&ejecucion);
        if (diario_) {
            std::vector<ParametroEnDiario> parametros;
            for (const auto& uno : ejecucion.Parametros()) parametros.push_back({uno.nombre, uno.campo, uno.rango});
            diario_->Inicio(NombreDeReporte(pedido_.reporte), parametros);
        }
        empezado_ = true;
        vista_.Empieza(ejecucion);
        if (volcado_) Volcar();
    }

    bool Ejecutar(abap::Ejecucion& ejecucion) {
        auto fin = abap::FinDeReporte::Normal;
        const bool bien = ConVolcado(ejecucion, [&] { fin = ejecucion.Correr(); });
        const bool enMedio = fin == abap::FinDeReporte::Detenido && curso_.RegistroActual() != 0;
        if (bien && (fin == abap::FinDeReporte::Abandonado || enMedio))
            sistema_.AbandonarUnidad();
        else if (bien)
            sistema_.TerminarUnidad();
        else
            Volcar();
        const auto& cuenta = curso_.Cuenta();
        const bool completo = bien && fin == abap::FinDeReporte::Normal && !curso_.Parado();
        TerminarCon(ejecucion, completo);
        return completo && cuenta.registros > 0 && cuenta.fallados == 0 && !cuenta.archivoSinLeer;
    }

    template <typename Accion>
    bool ConVolcado(abap::Ejecucion& ejecucion, Accion accion) {
        try {
            accion();
            return true;
        } catch (const abap::Volcado& volcado) {
            volcado_ = {volcado.Nombre(), volcado.what(), ejecucion.Linea()};
            sistema_.AbandonarUnidad();
            return false;
        }
    }

    void Volcar() {
        origen_ = pedido_.origen ? pedido_.origen(volcado_->linea) : OrigenDeLinea();
        curso_.Volcar(*volcado_, origen_.enDiario);
    }

    void TerminarCon(abap::Ejecucion& ejecucion, bool completo) {
        const auto cuenta = curso_.Cuenta();
        if (diario_) {
            diario_->Final(cuenta.registros, cuenta.Contabilizados(), cuenta.fallados);
            diario_->Terminar();
        }
        vista_.Termina(ejecucion);
        if (volcado_) vista_.Volcado(curso_.RegistroActual(), *volcado_, origen_);
        if (completo && pedido_.todosLosRegistros) {
            for (const auto& [nombre, tabla] : ejecucion.TablasDeGrupos()) {
                if (tabla->Perdidas() > 0) vista_.SinRegistro(nombre, tabla->Perdidas(), tabla->Agregadas());
            }
        }
        vista_.Resumen(cuenta);
    }

    const PedidoDeCorrida& pedido_;
    SistemaDePractica& sistema_;
    Curso& curso_;
    VistaDeCorrida& vista_;
    abap::Entorno entorno_;
    std::unique_ptr<Diario> diario_;
    bool empezado_ = false;
    std::optional<VolcadoDicho> volcado_;
    OrigenDeLinea origen_;
};

}  // namespace

bool Correr(const PedidoDeCorrida& pedido, SistemaDePractica& sistema, Curso& curso, abap::SalidaDeLista& lista,
            VistaDeCorrida& vista) {
    const auto compilacion = sistema.Compilar(pedido.reporte);
    if (!compilacion.programa) {
        for (const auto& falta : compilacion.faltas) {
            vista.FaltaDePrograma(falta, pedido.origen ? pedido.origen(falta.linea) : OrigenDeLinea());
        }
        return false;
    }
    return Corrida(pedido, sistema, curso, lista, vista).Correr(compilacion.programa);
}

std::string NombreDeReporte(std::string_view reporte) {
    for (const auto linea : PartirEnLineas(reporte)) {
        const auto texto = Recortar(linea);
        if (texto.empty() || texto.front() == '*' || texto.front() == '"') continue;
        const auto palabra = Mayusculas(AntesDe(texto, ' '));
        if (palabra != "REPORT" && palabra != "PROGRAM") continue;
        const auto nombre = Recortar(DespuesDe(texto, ' '));
        return Mayusculas(nombre.substr(0, nombre.find_first_of(" .:")));
    }
    return {};
}

}  // namespace qor
