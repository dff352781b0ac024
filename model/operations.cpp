#include "model/operations.h"

#include "base/failure.h"
#include "base/text.h"
#include "model/cells.h"

namespace qor {

namespace {

// Working values of the classification, never seen outside it.
constexpr int miembro = -1;
constexpr int cabezaSinGrupo = 777;
constexpr int cabezaBAPIConGrupo = 998;
constexpr int pantallaConGrupo = 999;

}  // namespace

Operaciones ActualizarOperaciones(const Especificacion& especificacion, int fila) {
    Operaciones operaciones;
    operaciones.Clasificar(especificacion, fila);
    const int filas = especificacion.FilasTransaccion();
    operaciones.Numerar(filas);
    operaciones.Indexar(especificacion, filas);
    return operaciones;
}

void Operaciones::Clasificar(const Especificacion& especificacion, int filaConsultada) {
    bool esBAPI = false;
    int cabeza = 0;
    bool okVisto = false;
    bool enLoop = false;
    std::string_view prefijoPrevio;
    const auto empezarCabeza = [&](int fila, std::string_view prefijo) {
        cabeza = fila;
        okVisto = enLoop = false;
        prefijoPrevio = prefijo;
    };
    for (int r = 0; r <= ultimaFila && !especificacion.FilaTransaccionVacia(r); ++r) {
        const auto& fila = especificacion.TablaTransaccion[r];
        if (fila.EsCabezaBAPI()) esBAPI = HayBAPI = true;
        if (fila.EsCabezaTransaccion()) {
            esBAPI = false;
            HayTransaccion = true;
        }
        if (r == filaConsultada) TipoFilaConsultada = esBAPI ? "BAPI" : "TRANS";
        if (!EstaEnBlanco(fila.programa)) {
            empezarCabeza(r, {});
            continue;
        }
        const std::string_view campo = fila.campo;
        const auto prefijo = Contiene(campo, "-") ? AntesDe(campo, '-') : std::string_view{};
        if (esBAPI && prefijo != prefijoPrevio) empezarCabeza(r, prefijo);
        if (Contiene(campo, "(")) grupo_[r] = miembro;
        if (EsCabezaStepLoop(fila.nota)) {
            enLoop = true;
            grupo_[r] = miembro;
        }
        if (Recortar(campo) == "BDC_OKCODE" && !okVisto) {
            okVisto = true;
            grupo_[r] = miembro;
        }
        grupo_[cabeza] = !enLoop ? cabezaSinGrupo : esBAPI ? cabezaBAPIConGrupo : pantallaConGrupo;
    }
}

void Operaciones::Numerar(int filas) {
    int n = 0;
    bool activo = false;
    for (int r = 0; r < filas; ++r) {
        switch (grupo_[r]) {
            case pantallaConGrupo:
                activo = true;
                ++n;
                grupo_[r] = 0;  // a screen row is no member of its group
                break;
            case cabezaBAPIConGrupo:
                activo = true;
                grupo_[r] = ++n;
                break;
            case cabezaSinGrupo:
                activo = false;
                grupo_[r] = 0;
                break;
            case miembro: grupo_[r] = activo ? n : 0; break;
            default: break;
        }
    }
}

void Operaciones::Indexar(const Especificacion& especificacion, int filas) {
    for (int r = 0; r < filas; ++r) {
        const auto& fila = especificacion.TablaTransaccion[r];
        const int grupo = grupo_[r];
        ++filasPorGrupo_[grupo];
        Uso& uso = usos_[std::string(Recortar(fila.valor))];
        uso.ultimoGrupo = grupo;
        if (grupo != 0) {
            uso.filaConGrupo = r;
            uso.grupoDeEsaFila = grupo;
        }
        if (fila.nota.empty()) continue;
        try {
            const auto claves = ValorDeMarca(fila.nota, 7);
            if (!claves.empty()) claves_[grupo].push_back({r, std::string(claves), false});
        } catch (const FalloDeEjecucion&) {
            claves_[grupo].push_back({r, fila.nota, true});
        }
    }
    const int campos = especificacion.FilasArchivo();
    for (int f = 0; f < campos; ++f) {
        const std::string& campo = especificacion.TablaArchivo[f].campo;
        const auto uso = usos_.find(campo);
        campos_.push_back(campo);
        usoDeCampo_.push_back(uso == usos_.end() ? Uso{} : uso->second);
        ++camposPorGrupo_[usoDeCampo_.back().ultimoGrupo];
    }
}

int Operaciones::OperacionDeCampo(std::string_view campo) const {
    const auto lugar = usos_.find(std::string(campo));
    return lugar == usos_.end() ? 0 : lugar->second.ultimoGrupo;
}

ClaseCampo Operaciones::ClaseCampoEnOperacion(std::string_view campo, int n) const {
    const auto lugar = usos_.find(std::string(campo));
    return ClaseDeUso(lugar == usos_.end() ? Uso{} : lugar->second, campo, n);
}

ClaseCampo Operaciones::ClaseCampoEnOperacion(int filaArchivo, int n) const {
    const auto f = static_cast<std::size_t>(filaArchivo);
    return ClaseDeUso(usoDeCampo_[f], campos_[f], n);
}

ClaseCampo Operaciones::ClaseDeUso(const Uso& uso, std::string_view campo, int n) const {
    int filaClave = -1;
    for (const auto& claves : claves_[static_cast<std::size_t>(n)]) {
        if (claves.marcasInvertidas) {
            throw FalloDeEjecucion("the step-loop marks of a field stand in the wrong order: " + claves.texto);
        }
        if (Contiene(claves.texto, campo)) filaClave = claves.fila;
    }
    if (filaClave >= 0 && filaClave >= uso.filaConGrupo) return ClaseCampo::Clave;
    if (uso.filaConGrupo < 0) return ClaseCampo::Ninguna;
    return uso.grupoDeEsaFila == n ? ClaseCampo::DelGrupo : ClaseCampo::DeOtroGrupo;
}

int Operaciones::ContarCamposClave(int n) const {
    int cantidad = 0;
    for (std::size_t f = 0; f < campos_.size(); ++f) {
        if (ClaseDeUso(usoDeCampo_[f], campos_[f], n) == ClaseCampo::Clave) ++cantidad;
    }
    return cantidad;
}

int ContarStepLoops(const Especificacion& especificacion) { return static_cast<int>(CabezasStepLoop(especificacion).size()); }

std::vector<int> CabezasStepLoop(const Especificacion& especificacion) {
    std::vector<int> cabezas;
    for (int r = 0; r <= ultimaFila; ++r) {
        if (EsCabezaStepLoop(especificacion.TablaTransaccion[r].nota)) cabezas.push_back(r);
    }
    return cabezas;
}

int FilaDeStepLoop(const Especificacion& especificacion, int n) {
    const int filas = especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        if (EsCabezaStepLoop(especificacion.TablaTransaccion[r].nota) && --n == 0) return r;
    }
    return 0;
}

OkCode BuscarOkCode(const Especificacion& especificacion, int fila) {
    const auto& tabla = especificacion.TablaTransaccion;
    OkCode ok;
    const auto tomarPantalla = [&](int r) {
        ok.filaDePantalla = r;
        ok.programa = tabla[r].programa;
        ok.dynpro = tabla[r].dynpro;
    };
    const auto tomarCodigo = [&](int r) {
        if (!Contiene(tabla[r].campo, "BDC_OKCODE")) return false;
        ok.filaDeOkCode = r;
        ok.valor = tabla[r].valor;
        if (Contiene(tabla[r].campo, ";")) ok.CondicionOkCode = DespuesDe(tabla[r].campo, ';');
        return true;
    };
    if (EstaEnBlanco(tabla[fila].campo)) {
        tomarPantalla(fila);
    } else {
        for (int r = fila - 1; r >= 0 && ok.programa.empty(); --r) {
            if (EstaEnBlanco(tabla[r].campo)) tomarPantalla(r);
            tomarCodigo(r);
        }
    }
    if (tomarCodigo(fila)) return ok;
    for (int r = fila + 1; r <= ultimaFila && !EstaEnBlanco(tabla[r].campo) && ok.valor.empty(); ++r) tomarCodigo(r);
    return ok;
}

}  // namespace qor
