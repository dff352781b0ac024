// The statements on texts.
#include <algorithm>
#include <array>

#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"
#include "abap/values/text_operations.h"

namespace qor::abap {

namespace {

// Fields that a statement names, resolved; without memory of its own where they are few.
class Campos {
public:
    Campos(Maquina& maquina, const std::vector<Operando>& operandos, bool comoDestinos) {
        Campo* donde = pocos_.data();
        if (operandos.size() > pocos_.size()) {
            muchos_.resize(operandos.size());
            donde = muchos_.data();
        }
        todos_ = {donde, operandos.size()};
        for (const auto& operando : operandos) *donde++ = comoDestinos ? maquina.Destino(operando) : maquina.Resolver(operando);
    }
    Campos(const Campos&) = delete;
    Campos& operator=(const Campos&) = delete;

    std::span<const Campo> Todos() const { return todos_; }

private:
    std::array<Campo, 12> pocos_;
    std::vector<Campo> muchos_;
    std::span<const Campo> todos_;
};

class Concatenacion : public Instruccion {
public:
    std::vector<Operando> fuentes;
    std::optional<Operando> separador;
    Operando destino;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campos suyas(maquina, fuentes, false);
        const Campo entre = separador ? maquina.Resolver(*separador) : Campo{};
        maquina.PonerSubrc(Concatenar(suyas.Todos(), separador ? &entre : nullptr, maquina.Destino(destino)));
        return siguiente;
    }
};

class Particion : public Instruccion {
public:
    Operando texto;
    Operando separador;
    std::vector<Operando> destinos;
    std::optional<OperandoDeTabla> tabla;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo fuente = maquina.Resolver(texto);
        const Campo entre = maquina.Resolver(separador);
        if (tabla) {
            PartirEnTabla(fuente, entre, maquina.Tabla(*tabla));
            maquina.PonerSubrc(0);
        } else {
            maquina.PonerSubrc(Partir(fuente, entre, Campos(maquina, destinos, true).Todos()));
        }
        return siguiente;
    }
};

class Reemplazo : public Instruccion {
public:
    Operando que;
    std::optional<Operando> largo;
    Operando otro;
    Operando campo;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        std::optional<int> suyo;
        if (largo) suyo = static_cast<int>(maquina.Entero(*largo));
        std::int32_t fdpos = maquina.Fdpos();
        const int subrc = Reemplazar(maquina.Resolver(que), suyo, maquina.Resolver(otro), maquina.Destino(campo), fdpos);
        maquina.PonerFdpos(fdpos);
        maquina.PonerSubrc(subrc);
        return siguiente;
    }
};

// SEARCH in a field, or row by row in a table.
class Busqueda : public Instruccion {
public:
    std::optional<Operando> campo;
    std::optional<OperandoDeTabla> tabla;
    Operando patron;
    std::optional<Operando> desde;
    std::optional<Operando> hasta;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo buscado = maquina.Resolver(patron);
        std::int32_t fdpos = maquina.Fdpos();
        const int subrc = tabla ? EnTabla(maquina, buscado, fdpos) : EnCampo(maquina, buscado, fdpos);
        maquina.PonerFdpos(fdpos);
        maquina.PonerSubrc(subrc);
        return siguiente;
    }

private:
    std::size_t Primero(Maquina& maquina) const {
        return desde ? static_cast<std::size_t>(std::max<std::int64_t>(maquina.Entero(*desde), 1)) - 1 : 0;
    }

    std::size_t Fin(Maquina& maquina, std::size_t todo) const {
        return hasta ? std::min(todo, static_cast<std::size_t>(std::max<std::int64_t>(maquina.Entero(*hasta), 0))) : todo;
    }

    int EnCampo(Maquina& maquina, const Campo& buscado, std::int32_t& fdpos) const {
        const Campo todo = maquina.Resolver(*campo);
        if (!desde && !hasta) return Buscar(todo, buscado, fdpos);
        std::string resto;
        const auto texto = TextoDeOperando(todo, resto);
        const auto primero = Primero(maquina);
        const auto fin = Fin(maquina, texto.size());
        if (primero >= fin) {
            fdpos = 0;
            return 4;
        }
        return Buscar(CampoDe(texto.substr(primero, fin - primero)), buscado, fdpos);
    }

    int EnTabla(Maquina& maquina, const Campo& buscado, std::int32_t& fdpos) const {
        const auto& filas = maquina.Tabla(*tabla);
        const auto fin = Fin(maquina, filas.Filas());
        for (auto fila = Primero(maquina); fila < fin; ++fila) {
            if (Buscar(filas.CampoDeFila(fila), buscado, fdpos) != 0) continue;
            maquina.PonerTabix(fila + 1);
            return 0;
        }
        maquina.PonerTabix(0);
        return 4;
    }
};

class Desplazamiento : public Instruccion {
public:
    enum class Clase : std::uint8_t { Lugares, Hasta, Borrando };

    Operando campo;
    Clase clase = Clase::Lugares;
    Lado lado = Lado::Izquierda;
    bool circular = false;
    std::optional<Operando> con;  // places, a text, or characters

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo suyo = maquina.Destino(campo);
        switch (clase) {
            case Clase::Lugares: DesplazarLugares(suyo, lado, con ? static_cast<int>(maquina.Entero(*con)) : 1, circular); break;
            case Clase::Hasta: maquina.PonerSubrc(DesplazarHasta(suyo, lado, maquina.Resolver(*con), circular)); break;
            case Clase::Borrando: DesplazarBorrando(suyo, lado, maquina.Resolver(*con)); break;
        }
        return siguiente;
    }
};

class Superposicion : public Instruccion {
public:
    Operando campo;
    Operando otro;
    std::optional<Operando> solo;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo estos = solo ? maquina.Resolver(*solo) : Campo{};
        maquina.PonerSubrc(Superponer(maquina.Destino(campo), maquina.Resolver(otro), solo ? &estos : nullptr));
        return siguiente;
    }
};

// ---- Reading ----

void LeerCONCATENATE(Compilador& c, Lectura& l) {
    auto& suya = c.Emitir<Concatenacion>();
    do {
        suya.fuentes.push_back(c.LeerOperando(l));
    } while (!l.Es("INTO"_c));
    l.Avanzar();
    suya.destino = c.LeerDestino(l);
    if (l.Toma("SEPARATED"_c)) {
        l.Exige("BY"_c, "BY");
        suya.separador = c.LeerOperando(l);
    }
    l.Fin();
}

void LeerSPLIT(Compilador& c, Lectura& l) {
    auto& suya = c.Emitir<Particion>();
    suya.texto = c.LeerOperando(l);
    l.Exige("AT"_c, "AT");
    suya.separador = c.LeerOperando(l);
    l.Exige("INTO"_c, "INTO");
    if (l.Es("TABLE"_c) && l.Hay(1)) {
        l.Avanzar();
        suya.tabla = c.LeerTabla(l);
    } else {
        do {
            suya.destinos.push_back(c.LeerDestino(l));
        } while (l.Hay());
    }
    l.Fin();
}

void LeerCONDENSE(Compilador& c, Lectura& l) {
    auto campo = c.LeerDestino(l);
    const bool sinBlancos = l.Toma("NO-GAPS"_c);
    l.Fin();
    c.EmitirAccion([campo = std::move(campo), sinBlancos](Maquina& maquina) { Condensar(maquina.Destino(campo), sinBlancos); });
}

void LeerTRANSLATE(Compilador& c, Lectura& l) {
    auto campo = c.LeerDestino(l);
    if (l.Toma("USING"_c)) {
        auto pares = c.LeerOperando(l);
        l.Fin();
        c.EmitirAccion([campo = std::move(campo), pares = std::move(pares)](Maquina& maquina) {
            TrasladarPares(maquina.Destino(campo), maquina.Resolver(pares));
        });
        return;
    }
    l.Exige("TO"_c, "TO UPPER CASE, TO LOWER CASE or USING");
    const bool mayusculas = l.Toma("UPPER"_c);
    if (!mayusculas && !l.Toma("LOWER"_c)) l.NoSePractica();
    l.Exige("CASE"_c, "CASE");
    l.Fin();
    c.EmitirAccion([campo = std::move(campo), mayusculas](Maquina& maquina) { CambiarCaja(maquina.Destino(campo), mayusculas); });
}

void LeerREPLACE(Compilador& c, Lectura& l) {
    auto& suyo = c.Emitir<Reemplazo>();
    suyo.que = c.LeerOperando(l);
    if (l.Toma("LENGTH"_c)) suyo.largo = c.LeerOperando(l);
    l.Exige("WITH"_c, "WITH");
    suyo.otro = c.LeerOperando(l);
    l.Exige("INTO"_c, "INTO");
    suyo.campo = c.LeerDestino(l);
    l.Fin();
}

void LeerSEARCH(Compilador& c, Lectura& l) {
    auto& suya = c.Emitir<Busqueda>();
    suya.tabla = c.BuscarTabla(l.Actual());
    if (suya.tabla) {
        l.Avanzar();
    } else {
        suya.campo = c.LeerOperando(l);
    }
    l.Exige("FOR"_c, "FOR");
    suya.patron = c.LeerOperando(l);
    while (l.Hay()) {
        if (!suya.desde && l.Toma("STARTING"_c, "AT"_c)) {
            suya.desde = c.LeerOperando(l);
        } else if (!suya.hasta && l.Toma("ENDING"_c, "AT"_c)) {
            suya.hasta = c.LeerOperando(l);
        } else {
            l.NoSePractica();
        }
    }
}

void LeerSHIFT(Compilador& c, Lectura& l) {
    using Clase = Desplazamiento::Clase;
    auto& suyo = c.Emitir<Desplazamiento>();
    suyo.campo = c.LeerDestino(l);
    bool conLado = false;
    const auto deUnaVez = [&] {
        if (suyo.con) l.NoSePractica();
    };
    while (l.Hay()) {
        if (!conLado && l.EsAlguna({"LEFT"_c, "RIGHT"_c})) {
            suyo.lado = l.Tomada().clave == "LEFT"_c ? Lado::Izquierda : Lado::Derecha;
            conLado = true;
        } else if (l.Toma("CIRCULAR"_c)) {
            suyo.circular = true;
        } else if (l.Es("BY"_c)) {
            deUnaVez();
            l.Avanzar();
            suyo.con = c.LeerOperando(l);
            l.Exige("PLACES"_c, "PLACES");
        } else if (l.Es("UP"_c) && l.Es("TO"_c, 1)) {
            deUnaVez();
            l.Avanzar(2);
            suyo.clase = Clase::Hasta;
            suyo.con = c.LeerOperando(l);
        } else if (l.Es("DELETING"_c) && l.EsAlguna({"LEADING"_c, "TRAILING"_c}, 1)) {
            deUnaVez();
            l.Avanzar();
            const auto lado = l.Tomada().clave == "LEADING"_c ? Lado::Izquierda : Lado::Derecha;
            if (suyo.circular || (conLado && suyo.lado != lado)) l.Fallar("the direction does not fit");
            suyo.lado = lado;
            conLado = true;
            suyo.clase = Clase::Borrando;
            suyo.con = c.LeerOperando(l);
        } else {
            l.NoSePractica();
        }
    }
    if (suyo.clase == Clase::Borrando && suyo.circular) l.Fallar("nothing is deleted in a circle");
}

void LeerOVERLAY(Compilador& c, Lectura& l) {
    auto& suya = c.Emitir<Superposicion>();
    suya.campo = c.LeerDestino(l);
    l.Exige("WITH"_c, "WITH");
    suya.otro = c.LeerOperando(l);
    if (l.Toma("ONLY"_c)) suya.solo = c.LeerOperando(l);
    l.Fin();
}

}  // namespace

bool LeerDeTextos(Compilador& c, Lectura& l) {
    switch (l.Primera().clave) {
        case "CONCATENATE"_c: LeerCONCATENATE(c, l); return true;
        case "SPLIT"_c: LeerSPLIT(c, l); return true;
        case "CONDENSE"_c: LeerCONDENSE(c, l); return true;
        case "TRANSLATE"_c: LeerTRANSLATE(c, l); return true;
        case "REPLACE"_c: LeerREPLACE(c, l); return true;
        case "SEARCH"_c: LeerSEARCH(c, l); return true;
        case "SHIFT"_c: LeerSHIFT(c, l); return true;
        case "OVERLAY"_c: LeerOVERLAY(c, l); return true;
        default: return false;
    }
}

}  // namespace qor::abap
