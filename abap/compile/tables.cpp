// Rows into internal tables, and tables as a whole.
#include <algorithm>
#include <array>

#include "abap/compile/table_statements.h"
#include "abap/values/conversion.h"
#include "abap/values/number.h"
#include "abap/values/table_rows.h"

namespace qor::abap {

namespace {

// APPEND, of an area or of an initial row.
class AgregarFila : public Instruccion {
public:
    AgregarFila(OperandoDeTabla tabla, std::optional<Operando> area) : tabla_(std::move(tabla)), area_(std::move(area)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& tabla = maquina.Tabla(tabla_);
        const auto fila = tabla.Filas();
        if (area_) {
            const Campo origen = maquina.Resolver(*area_);
            tabla.Agregar();
            Mover(origen, tabla.CampoDeFila(fila));
        } else {
            tabla.Agregar();
            PonerInicial(tabla, fila);
        }
        maquina.PonerTabix(fila + 1);
        return siguiente;
    }

private:
    OperandoDeTabla tabla_;
    std::optional<Operando> area_;
};

// APPEND ... SORTED BY: behind the rows whose component is not less; no more rows stay than OCCURS says.
class AgregarOrdenada : public Instruccion {
public:
    AgregarOrdenada(OperandoDeTabla tabla, Operando area, Componente componente)
        : tabla_(std::move(tabla)), area_(std::move(area)), componente_(std::move(componente)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& tabla = maquina.Tabla(tabla_);
        tabla.Agregar();
        Mover(maquina.Resolver(area_), tabla.CampoDeFila(tabla.Filas() - 1));
        const auto filas = tabla.Orden();
        const auto nueva = filas.end() - 1;
        const Campo valor = CampoDeComponente(componente_, *nueva);
        auto lugar = nueva;
        while (lugar != filas.begin() && Comparar(CampoDeComponente(componente_, *(lugar - 1)), valor) < 0) --lugar;
        const auto fila = static_cast<std::size_t>(lugar - filas.begin());
        std::rotate(lugar, nueva, filas.end());
        tabla.Cambia();
        tabla.SusPasadas().Inserta(fila);
        maquina.PonerTabix(fila + 1);
        if (tabla_.ocurre > 0 && tabla.Filas() > tabla_.ocurre) tabla.Borrar(tabla.Filas() - 1);
        return siguiente;
    }

private:
    OperandoDeTabla tabla_;
    Operando area_;
    Componente componente_;
};

// APPEND LINES OF and INSERT LINES OF.
class CopiarFilas : public Instruccion {
public:
    enum class Adonde : std::uint8_t { Detras, ATabix, AIndice };

    CopiarFilas(OperandoDeTabla origen, Tramo tramo, OperandoDeTabla destino, Adonde adonde, std::optional<Operando> indice)
        : origen_(std::move(origen)),
          tramo_(std::move(tramo)),
          destino_(std::move(destino)),
          adonde_(adonde),
          indice_(std::move(indice)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& origen = maquina.Tabla(origen_);
        auto& destino = maquina.Tabla(destino_);
        const auto [desde, hasta] = tramo_.En(maquina, origen.Filas(), true);
        if (adonde_ == Adonde::Detras) {
            for (std::size_t i = desde; i < hasta; ++i) {
                destino.Agregar();
                Mover(origen.CampoDeFila(i), destino.CampoDeFila(destino.Filas() - 1));
                maquina.PonerTabix(destino.Filas());
            }
            return siguiente;
        }
        auto lugar = FilaDe(adonde_ == Adonde::ATabix ? static_cast<std::int64_t>(maquina.Tabix()) : maquina.Entero(*indice_));
        if (lugar > destino.Filas()) {
            maquina.PonerSubrc(4);
            return siguiente;
        }
        // Rows of the table itself are taken as they were.
        TablaInterna antes(origen.Linea());
        if (&origen == &destino) CopiarTabla(origen, antes);
        const auto& de = &origen == &destino ? antes : origen;
        for (std::size_t i = desde; i < hasta; ++i, ++lugar) {
            destino.Insertar(lugar);
            Mover(de.CampoDeFila(i), destino.CampoDeFila(lugar));
        }
        maquina.PonerSubrc(0);
        return siguiente;
    }

private:
    OperandoDeTabla origen_;
    Tramo tramo_;
    OperandoDeTabla destino_;
    Adonde adonde_;
    std::optional<Operando> indice_;
};

// INSERT of an area or of an initial row; in front of the row with an index, or behind all others.
class MeterFila : public Instruccion {
public:
    MeterFila(OperandoDeTabla tabla, std::optional<Operando> area, std::optional<Operando> indice, bool detras)
        : tabla_(std::move(tabla)), area_(std::move(area)), indice_(std::move(indice)), detras_(detras) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& tabla = maquina.Tabla(tabla_);
        std::size_t fila = tabla.Filas();
        if (!detras_) fila = FilaDe(indice_ ? maquina.Entero(*indice_) : static_cast<std::int64_t>(maquina.Tabix()));
        if (fila > tabla.Filas()) {
            maquina.PonerSubrc(4);
            return siguiente;
        }
        if (area_) {
            const Campo origen = maquina.Resolver(*area_);
            tabla.Insertar(fila);
            Mover(origen, tabla.CampoDeFila(fila));
        } else {
            tabla.Insertar(fila);
            PonerInicial(tabla, fila);
        }
        maquina.PonerSubrc(0);
        if (detras_) maquina.PonerTabix(fila + 1);
        return siguiente;
    }

private:
    OperandoDeTabla tabla_;
    std::optional<Operando> area_;
    std::optional<Operando> indice_;
    bool detras_;
};

// COLLECT: numbers are added to the row that has the same of all else.
class Acumular : public Instruccion {
public:
    Acumular(OperandoDeTabla tabla, Operando area) : tabla_(std::move(tabla)), area_(std::move(area)) {
        if (!tabla_.dinamica) Preparar(tabla_.linea, claves_, numeros_);
    }

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& tabla = maquina.Tabla(tabla_);
        tabla.PonerSumas();
        if (!tabla_.dinamica) return Sumar(maquina, tabla, claves_, numeros_), siguiente;
        std::vector<Igualdad> claves;
        std::vector<Componente> numeros;
        Preparar(tabla.Linea(), claves, numeros);
        Sumar(maquina, tabla, claves, numeros);
        return siguiente;
    }

private:
    static void Preparar(const TipoDeCampo& linea, std::vector<Igualdad>& claves, std::vector<Componente>& numeros) {
        numeros = ComponentesNumericos(linea);
        if (linea.estructura == nullptr && !numeros.empty()) return;  // one number is no key
        for (auto& componente : ClaveEstandar(linea)) claves.push_back({std::move(componente), {}});
    }

    void Sumar(Maquina& maquina, TablaInterna& tabla, std::vector<Igualdad> claves, const std::vector<Componente>& numeros) const {
        // The row in the type of the line.
        std::array<std::uint8_t, 512> corta;
        std::vector<std::uint8_t> larga(tabla.Linea().largo > corta.size() ? tabla.Linea().largo : 0);
        const Componente entera = LineaEntera(tabla.Linea());
        const Campo fila = CampoDeComponente(entera, larga.empty() ? corta.data() : larga.data());
        Mover(maquina.Resolver(area_), fila);
        for (auto& clave : claves) clave.valor = CampoDeComponente(clave.componente, fila.datos);
        const auto hallada = BuscarFila(tabla, claves, 0);
        maquina.PonerTabix(hallada + 1);
        if (hallada == tabla.Filas()) {
            tabla.Agregar();
            Mover(fila, tabla.CampoDeFila(hallada));
            return;
        }
        for (const auto& numero : numeros) {
            const Campo suma = CampoDeComponente(numero, tabla.Fila(hallada));
            const Calculo calculo = CalculoDe(suma);
            PonerNumero(Calcular('+', LeerNumero(suma, calculo), LeerNumero(CampoDeComponente(numero, fila.datos), calculo)), suma);
        }
    }

    OperandoDeTabla tabla_;
    Operando area_;
    std::vector<Igualdad> claves_;
    std::vector<Componente> numeros_;
};

Tramo LeerTramo(Compilador& c, Lectura& l) {
    Tramo tramo;
    if (l.Toma("FROM"_c)) tramo.desde = c.LeerOperando(l);
    return tramo;
}

}  // namespace

void CompilarAPPEND(Compilador& c, Lectura& l) {
    if (l.Toma("LINES"_c, "OF"_c)) {
        auto origen = c.LeerTabla(l);
        auto tramo = LeerTramo(c, l);
        if (l.Es("TO"_c) && l.Es("TO"_c, 2)) {
            l.Avanzar();
            tramo.hasta = c.LeerOperando(l);
        }
        l.Exige("TO"_c, "TO");
        auto destino = c.LeerTabla(l);
        l.Fin();
        c.Emitir<CopiarFilas>(std::move(origen), std::move(tramo), std::move(destino), CopiarFilas::Adonde::Detras, std::nullopt);
        return;
    }
    std::optional<Operando> area;
    if (l.Toma("INITIAL"_c, "LINE"_c)) {
        l.Exige("TO"_c, "TO");
    } else if (l.Es("TO"_c, 1)) {
        area = c.LeerOperando(l);
        l.Avanzar();
    } else {
        if (!l.Hay()) l.NoSePractica();
        const auto lugar = l.Lugar();
        area = CabeceraDe(l, c.LeerTabla(l));
        l.Volver(lugar);
    }
    auto tabla = c.LeerTabla(l);
    if (l.Toma("SORTED"_c, "BY"_c)) {
        if (!area) l.NoSePractica();
        auto componente = LeerParte(c, l, tabla);
        l.Fin();
        c.Emitir<AgregarOrdenada>(std::move(tabla), std::move(*area), std::move(componente));
        return;
    }
    l.Fin();
    c.Emitir<AgregarFila>(std::move(tabla), std::move(area));
}

bool CompilarINSERT(Compilador& c, Lectura& l) {
    const auto leerIndice = [&]() -> std::optional<Operando> {
        std::optional<Operando> indice;
        if (l.Toma("INDEX"_c)) indice = c.LeerOperando(l);
        l.Fin();
        return indice;
    };
    if (l.Toma("LINES"_c, "OF"_c)) {
        using Adonde = CopiarFilas::Adonde;
        auto origen = c.LeerTabla(l);
        auto tramo = LeerTramo(c, l);
        if (l.Toma("TO"_c)) tramo.hasta = c.LeerOperando(l);
        l.Exige("INTO"_c, "INTO");
        const bool detras = l.Es("TABLE"_c) && l.Hay(1) && !l.Es("INDEX"_c, 1) && l.Toma("TABLE"_c);
        auto destino = c.LeerTabla(l);
        auto indice = leerIndice();
        const auto adonde = detras ? Adonde::Detras : indice ? Adonde::AIndice : Adonde::ATabix;
        c.Emitir<CopiarFilas>(std::move(origen), std::move(tramo), std::move(destino), adonde, std::move(indice));
        return true;
    }
    const bool inicial = l.Es("INITIAL"_c) && l.Es("LINE"_c, 1) && l.Es("INTO"_c, 2);
    if (!inicial && !l.Es("INTO"_c, 1)) {
        // Without INTO a name alone stands for the table and its header line.
        if ((l.Hay(1) && !l.Es("INDEX"_c, 1)) || !HayTabla(c, l)) return false;
        auto tabla = c.LeerTabla(l);
        auto area = CabeceraDe(l, tabla);
        auto indice = leerIndice();
        c.Emitir<MeterFila>(std::move(tabla), std::move(area), std::move(indice), false);
        return true;
    }
    std::optional<Operando> area;
    if (inicial) {
        l.Avanzar(2);
    } else {
        area = c.LeerOperando(l);
    }
    l.Avanzar();
    const bool detras = l.Es("TABLE"_c) && l.Hay(1) && !l.Es("INDEX"_c, 1) && l.Toma("TABLE"_c);
    auto tabla = c.LeerTabla(l);
    if (detras) l.Fin();
    auto indice = leerIndice();
    c.Emitir<MeterFila>(std::move(tabla), std::move(area), std::move(indice), detras);
    return true;
}

void CompilarCOLLECT(Compilador& c, Lectura& l) {
    std::optional<Operando> area;
    if (l.Es("INTO"_c, 1)) {
        area = c.LeerOperando(l);
        l.Avanzar();
    }
    auto tabla = c.LeerTabla(l);
    if (!area) area = CabeceraDe(l, tabla);
    l.Fin();
    c.Emitir<Acumular>(std::move(tabla), std::move(*area));
}

void CompilarREFRESH(Compilador& c, Lectura& l) {
    auto tabla = c.LeerTabla(l);
    l.Fin();
    c.EmitirVaciado(std::move(tabla));
}

void CompilarFREE(Compilador& c, Lectura& l) {
    if (HayTabla(c, l)) {
        CompilarREFRESH(c, l);
        return;
    }
    auto campo = c.LeerDestino(l);
    l.Fin();
    c.EmitirLimpieza(std::move(campo));
}

bool LeerDeTablas(Compilador& c, Lectura& l) {
    switch (l.Primera().clave) {
        case "APPEND"_c: CompilarAPPEND(c, l); return true;
        case "INSERT"_c: return CompilarINSERT(c, l);
        case "READ"_c: return CompilarREAD(c, l);
        case "MODIFY"_c: return CompilarMODIFY(c, l);
        case "DELETE"_c: return CompilarDELETE(c, l);
        case "LOOP"_c: CompilarLOOP(c, l); return true;
        case "AT"_c: return CompilarAT(c, l);
        case "SUM"_c: CompilarSUM(c, l); return true;
        case "SORT"_c: CompilarSORT(c, l); return true;
        case "COLLECT"_c: CompilarCOLLECT(c, l); return true;
        case "DESCRIBE"_c: CompilarDESCRIBE(c, l); return true;
        case "REFRESH"_c: CompilarREFRESH(c, l); return true;
        case "FREE"_c: CompilarFREE(c, l); return true;
        default: return false;
    }
}

}  // namespace qor::abap
