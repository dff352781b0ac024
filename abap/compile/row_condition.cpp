#include "abap/compile/row_condition.h"

#include <algorithm>

#include "abap/compile/table_statements.h"
#include "abap/values/conversion.h"
#include "abap/values/table_rows.h"

namespace qor::abap {

namespace {

constexpr int honduraMaxima = 200;

}  // namespace

std::unique_ptr<CondicionDeFilas> CondicionDeFilas::Leer(Compilador& c, Lectura& l, const OperandoDeTabla& tabla) {
    auto condicion = std::make_unique<CondicionDeFilas>();
    condicion->tabla_ = tabla;
    condicion->raiz_ = condicion->LeerO(c, l);
    condicion->SepararIgualdades();
    return condicion;
}

CondicionDeFilas::Nodo CondicionDeFilas::LeerO(Compilador& c, Lectura& l) {
    Nodo primero = LeerY(c, l);
    if (!l.Es("OR"_c)) return primero;
    Nodo nodo;
    nodo.clase = Nodo::Clase::O;
    nodo.partes.push_back(std::move(primero));
    while (l.Toma("OR"_c)) nodo.partes.push_back(LeerY(c, l));
    return nodo;
}

CondicionDeFilas::Nodo CondicionDeFilas::LeerY(Compilador& c, Lectura& l) {
    Nodo nodo;
    do {
        Nodo parte = LeerNo(c, l);
        if (parte.clase == Nodo::Clase::Y) {
            std::move(parte.partes.begin(), parte.partes.end(), std::back_inserter(nodo.partes));
        } else {
            nodo.partes.push_back(std::move(parte));
        }
    } while (l.Toma("AND"_c));
    return nodo;
}

CondicionDeFilas::Nodo CondicionDeFilas::LeerNo(Compilador& c, Lectura& l) {
    if (++hondura_ > honduraMaxima) l.Fallar("too many brackets within one another");
    Nodo nodo;
    if (l.Toma("NOT"_c)) {
        nodo.clase = Nodo::Clase::No;
        nodo.partes.push_back(LeerNo(c, l));
    } else if (l.Toma("("_c)) {
        nodo = LeerO(c, l);
        l.Exige(")"_c, ")");
    } else {
        nodo = LeerComparacion(c, l);
    }
    --hondura_;
    return nodo;
}

void CondicionDeFilas::LeerValor(Compilador& c, Lectura& l) { valores_.push_back(c.LeerOperando(l)); }

CondicionDeFilas::Nodo CondicionDeFilas::LeerComparacion(Compilador& c, Lectura& l) {
    Nodo nodo;
    nodo.componente = LeerParte(c, l, tabla_);
    nodo.lugar = valores_.size();
    bool no = false;
    if (l.Toma("IS"_c)) {
        no = l.Toma("NOT"_c);
        l.Exige("INITIAL"_c, "INITIAL");
        nodo.clase = Nodo::Clase::Inicial;
    } else {
        no = l.Toma("NOT"_c);
        if (l.Toma("BETWEEN"_c)) {
            nodo.clase = Nodo::Clase::Entre;
            LeerValor(c, l);
            l.Exige("AND"_c, "AND");
            LeerValor(c, l);
        } else if (l.Toma("IN"_c)) {
            nodo.clase = Nodo::Clase::EnRango;
            nodo.lugar = rangos_.size();
            rangos_.push_back(c.LeerRango(l));
        } else {
            const auto relacion = c.TomarRelacion(l);
            if (no || !relacion) l.Fallar("a comparison was expected");
            nodo.clase = Nodo::Clase::Compara;
            nodo.relacion = *relacion;
            LeerValor(c, l);
        }
    }
    if (!no) return nodo;
    Nodo negado;
    negado.clase = Nodo::Clase::No;
    negado.partes.push_back(std::move(nodo));
    return negado;
}

void CondicionDeFilas::SepararIgualdades() {
    const auto esIgualdad = [](const Nodo& nodo) { return nodo.clase == Nodo::Clase::Compara && nodo.relacion == Relacion::EQ; };
    if (raiz_.clase == Nodo::Clase::Y) {
        const auto otras = std::stable_partition(raiz_.partes.begin(), raiz_.partes.end(), esIgualdad);
        std::move(raiz_.partes.begin(), otras, std::back_inserter(igualdades_));
        raiz_.partes.erase(raiz_.partes.begin(), otras);
        resto_ = !raiz_.partes.empty();
    } else if (esIgualdad(raiz_)) {
        igualdades_.push_back(std::move(raiz_));
    } else {
        resto_ = true;
    }
}

void CondicionDeFilas::Tomar(Maquina& maquina, ValoresDeCondicion& valores) const {
    if (valores.dueno != this) {
        valores.dueno = this;
        valores.campos.resize(valores_.size());
        valores.copias.resize(valores_.size());
        valores.rangos.resize(rangos_.size());
        valores.igualdades.clear();
        for (const auto& igualdad : igualdades_) valores.igualdades.push_back({igualdad.componente, {}});
    }
    for (std::size_t i = 0; i < valores_.size(); ++i) {
        Campo& campo = valores.campos[i];
        campo = maquina.Resolver(valores_[i]);
        if (valores_[i].base == Base::Literal) continue;
        auto& copia = valores.copias[i];
        if (campo.tipo == Tipo::Cadena) {
            copia = *campo.cadena;
            campo.cadena = &copia;
        } else {
            copia.assign(reinterpret_cast<const char*>(campo.datos), campo.largo);
            campo.datos = reinterpret_cast<std::uint8_t*>(copia.data());
        }
    }
    for (std::size_t i = 0; i < rangos_.size(); ++i) valores.rangos[i] = &maquina.Tabla(rangos_[i]);
    for (std::size_t i = 0; i < igualdades_.size(); ++i) valores.igualdades[i].valor = valores.campos[igualdades_[i].lugar];
}

bool CondicionDeFilas::Cumple(const Nodo& nodo, const TablaInterna& tabla, const ValoresDeCondicion& valores, std::size_t fila) {
    const auto cumple = [&](const Nodo& parte) { return Cumple(parte, tabla, valores, fila); };
    switch (nodo.clase) {
        case Nodo::Clase::Y: return std::all_of(nodo.partes.begin(), nodo.partes.end(), cumple);
        case Nodo::Clase::O: return std::any_of(nodo.partes.begin(), nodo.partes.end(), cumple);
        case Nodo::Clase::No: return !cumple(nodo.partes.front());
        default: break;
    }
    const Campo campo = CampoDeFila(tabla, nodo.componente, fila);
    switch (nodo.clase) {
        case Nodo::Clase::Inicial: return EsInicial(campo, nodo.componente.tipo.estructura);
        case Nodo::Clase::EnRango: return EstaEnRango(campo, *valores.rangos[nodo.lugar]);
        case Nodo::Clase::Entre:
            return Comparar(campo, valores.campos[nodo.lugar]) >= 0 && Comparar(campo, valores.campos[nodo.lugar + 1]) <= 0;
        default: break;
    }
    std::int32_t fdpos = 0;
    return Vale(nodo.relacion, campo, valores.campos[nodo.lugar], fdpos);
}

bool CondicionDeFilas::Cumple(const TablaInterna& tabla, const ValoresDeCondicion& valores, std::size_t fila) const {
    return std::all_of(igualdades_.begin(), igualdades_.end(),
                       [&](const Nodo& nodo) { return Cumple(nodo, tabla, valores, fila); }) &&
           (!resto_ || Cumple(raiz_, tabla, valores, fila));
}

std::size_t CondicionDeFilas::Buscar(TablaInterna& tabla, const ValoresDeCondicion& valores, std::size_t desde) const {
    while (true) {
        if (!igualdades_.empty()) desde = BuscarFila(tabla, valores.igualdades, desde);
        if (desde >= tabla.Filas() || !resto_ || Cumple(raiz_, tabla, valores, desde)) return desde;
        ++desde;
    }
}

}  // namespace qor::abap
