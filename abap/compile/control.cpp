#include <algorithm>

#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"

// IF, CASE, DO, WHILE, and what leaves them.
namespace qor::abap {

namespace {

class Salto : public Instruccion {
public:
    explicit Salto(std::size_t adonde = finDeRutina) : destino(adonde) {}
    std::size_t Ejecutar(Maquina&, std::size_t) const override { return destino; }

    std::size_t destino;
};

class SaltoSiNo : public Instruccion {
public:
    SaltoSiNo(std::unique_ptr<Condicion> condicion, std::size_t adonde = finDeRutina)
        : destino(adonde), condicion_(std::move(condicion)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        return condicion_->Vale(maquina) ? siguiente : destino;
    }

    std::size_t destino;

private:
    std::unique_ptr<Condicion> condicion_;
};

// A branch of CASE: any of the values.
class SaltoSiNinguno : public Instruccion {
public:
    SaltoSiNinguno(Operando caso, std::vector<Operando> valores) : caso_(std::move(caso)), valores_(std::move(valores)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo caso = maquina.Resolver(caso_);
        for (const auto& valor : valores_) {
            if (Comparar(caso, maquina.Resolver(valor)) == 0) return siguiente;
        }
        return destino;
    }

    std::size_t destino = finDeRutina;

private:
    Operando caso_;
    std::vector<Operando> valores_;
};

class SaltoFuera : public Instruccion {
public:
    explicit SaltoFuera(SaltoDeReporte::Adonde adonde) : adonde_(adonde) {}
    std::size_t Ejecutar(Maquina&, std::size_t) const override { throw SaltoDeReporte{adonde_}; }

private:
    SaltoDeReporte::Adonde adonde_;
};

// DO and WHILE: SY-INDEX counts the passes, and comes back behind the loop.
struct EstadoDeCuenta : EstadoDeBucle {
    std::int64_t pase = 0;
    std::int64_t pases = -1;  // of DO ... TIMES
    std::int64_t indiceDeAntes = 0;
};

std::int64_t IndiceSY(Maquina& maquina) {
    std::int32_t indice = 0;
    std::memcpy(&indice, maquina.CampoSY("INDEX").datos, sizeof indice);
    return indice;
}

class PrincipioDeCuenta : public Instruccion {
public:
    PrincipioDeCuenta(std::uint32_t nivel, std::unique_ptr<Expresion> veces) : nivel_(nivel), veces_(std::move(veces)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& estado = maquina.Bucle<EstadoDeCuenta>(nivel_);
        estado.pase = 0;
        estado.pases = veces_ ? std::max<std::int64_t>(ValorEntero(maquina, *veces_), 0) : -1;
        estado.indiceDeAntes = IndiceSY(maquina);
        return siguiente;
    }

private:
    std::uint32_t nivel_;
    std::unique_ptr<Expresion> veces_;
};

class PaseDeCuenta : public Instruccion {
public:
    PaseDeCuenta(std::uint32_t nivel, std::unique_ptr<Condicion> condicion) : nivel_(nivel), condicion_(std::move(condicion)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& estado = maquina.Bucle<EstadoDeCuenta>(nivel_);
        if (estado.pase == estado.pases) return destino;
        maquina.PonerSY("INDEX", ++estado.pase);
        return !condicion_ || condicion_->Vale(maquina) ? siguiente : destino;
    }

    std::size_t destino = finDeRutina;

private:
    std::uint32_t nivel_;
    std::unique_ptr<Condicion> condicion_;
};

class FinDeCuenta : public Instruccion {
public:
    explicit FinDeCuenta(std::uint32_t nivel) : nivel_(nivel) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        maquina.PonerSY("INDEX", maquina.Bucle<EstadoDeCuenta>(nivel_).indiceDeAntes);
        return siguiente;
    }

private:
    std::uint32_t nivel_;
};

}  // namespace

// ---- Blocks ----

BloqueAbierto& Compilador::AbrirBloque(const Palabra& palabra, Clave final, std::size_t* siNo) {
    BloqueAbierto& bloque = bloques_.emplace_back();
    bloque.final = final;
    bloque.palabra = palabra;
    bloque.siNo = siNo;
    return bloque;
}

std::uint32_t Compilador::NuevoNivel() {
    std::uint32_t& bucles = enForma_ ? rutina_->marco.bucles : programa_->global.bucles;
    return bucles++;
}

BloqueAbierto& Compilador::AbrirBucle(const Palabra& palabra, Clave final, std::size_t siguiente, std::size_t* salida,
                                      std::unique_ptr<Instruccion> ultima) {
    BloqueAbierto& bloque = AbrirBloque(palabra, final, nullptr);
    bloque.bucle = true;
    bloque.siguiente = siguiente;
    bloque.ultima = std::move(ultima);
    if (salida != nullptr) bloque.alFinal.push_back(salida);
    return bloque;
}

BloqueAbierto* Compilador::BucleActual() {
    for (auto bloque = bloques_.rbegin(); bloque != bloques_.rend(); ++bloque) {
        if (bloque->bucle) return &*bloque;
    }
    return nullptr;
}

bool Compilador::EnBuclePrincipal() const {
    return std::any_of(bloques_.begin(), bloques_.end(), [](const BloqueAbierto& bloque) { return bloque.principal; });
}

BloqueAbierto* Compilador::BucleDe(Clave final) {
    for (auto bloque = bloques_.rbegin(); bloque != bloques_.rend(); ++bloque) {
        if (bloque->bucle && bloque->final == final) return &*bloque;
    }
    return nullptr;
}

void Compilador::CerrarBloque(const Palabra& palabra) {
    if (bloques_.empty() || bloques_.back().final != palabra.clave) {
        if (sinBloques_) return;
        throw FallaDeSentencia{palabra, std::string(palabra.texto) + " ends nothing that is open here"};
    }
    BloqueAbierto bloque = std::move(bloques_.back());
    bloques_.pop_back();
    if (bloque.bucle) Emitir<Salto>(bloque.siguiente);
    if (bloque.siNo != nullptr) *bloque.siNo = Aqui();
    for (std::size_t* salto : bloque.alFinal) *salto = Aqui();
    if (bloque.ultima) Emitir(std::move(bloque.ultima));
}

// ---- IF, CASE ----

void Compilador::LeerIF(Lectura& l) {
    auto condicion = LeerCondicion(l);
    l.Fin();
    auto& salto = Emitir<SaltoSiNo>(std::move(condicion));
    AbrirBloque(l.Primera(), "ENDIF"_c, &salto.destino);
}

namespace {

// The branch in front ends: it jumps to the end of the block, and its condition jumps here.
BloqueAbierto& CambiarDeRama(Compilador& c, std::vector<BloqueAbierto>& bloques, Lectura& l, Clave final) {
    if (bloques.empty() || bloques.back().final != final) {
        throw FallaDeSentencia{l.Primera(), std::string(l.Primera().texto) + " belongs to nothing that is open here"};
    }
    BloqueAbierto& bloque = bloques.back();
    if (bloque.conOtros) throw FallaDeSentencia{l.Primera(), "nothing can come behind the last branch"};
    if (bloque.siNo != nullptr) {
        auto& salto = c.Emitir<Salto>();
        bloque.alFinal.push_back(&salto.destino);
        *bloque.siNo = c.Aqui();
        bloque.siNo = nullptr;
    }
    return bloque;
}

}  // namespace

void Compilador::LeerELSEIF(Lectura& l) {
    BloqueAbierto& bloque = CambiarDeRama(*this, bloques_, l, "ENDIF"_c);
    auto condicion = LeerCondicion(l);
    l.Fin();
    bloque.siNo = &Emitir<SaltoSiNo>(std::move(condicion)).destino;
}

void Compilador::LeerELSE(Lectura& l) {
    l.Fin();
    CambiarDeRama(*this, bloques_, l, "ENDIF"_c).conOtros = true;
}

void Compilador::LeerCASE(Lectura& l) {
    Operando caso = LeerOperando(l);
    l.Fin();
    AbrirBloque(l.Primera(), "ENDCASE"_c, nullptr).caso = std::move(caso);
}

void Compilador::LeerWHEN(Lectura& l) {
    BloqueAbierto& bloque = CambiarDeRama(*this, bloques_, l, "ENDCASE"_c);
    bloque.conRama = true;
    if (l.Toma("OTHERS"_c)) {
        l.Fin();
        bloque.conOtros = true;
        return;
    }
    std::vector<Operando> valores;
    do {
        valores.push_back(LeerOperando(l));
    } while (l.Toma("OR"_c));
    l.Fin();
    bloque.siNo = &Emitir<SaltoSiNinguno>(*bloque.caso, std::move(valores)).destino;
}

// ---- DO, WHILE ----

void Compilador::LeerDO(Lectura& l) {
    std::unique_ptr<Expresion> veces;
    if (l.Hay()) {
        veces = LeerExpresion(l);
        l.Exige("TIMES"_c, "TIMES");
    }
    l.Fin();
    const std::uint32_t nivel = NuevoNivel();
    Emitir<PrincipioDeCuenta>(nivel, std::move(veces));
    const std::size_t siguiente = Aqui();
    auto& pase = Emitir<PaseDeCuenta>(nivel, nullptr);
    AbrirBucle(l.Primera(), "ENDDO"_c, siguiente, &pase.destino, std::make_unique<FinDeCuenta>(nivel));
}

void Compilador::LeerWHILE(Lectura& l) {
    auto condicion = LeerCondicion(l);
    l.Fin();
    const std::uint32_t nivel = NuevoNivel();
    Emitir<PrincipioDeCuenta>(nivel, nullptr);
    const std::size_t siguiente = Aqui();
    auto& pase = Emitir<PaseDeCuenta>(nivel, std::move(condicion));
    AbrirBucle(l.Primera(), "ENDWHILE"_c, siguiente, &pase.destino, std::make_unique<FinDeCuenta>(nivel));
}

// ---- What leaves a loop, a routine, the report ----

// A loop's next pass; outside of loops the routine ends.
void Compilador::LeerCHECK(Lectura& l) {
    auto condicion = LeerCondicion(l);
    l.Fin();
    const BloqueAbierto* bucle = BucleActual();
    Emitir<SaltoSiNo>(std::move(condicion), bucle == nullptr ? finDeRutina : bucle->siguiente);
}

void Compilador::LeerEXIT(Lectura& l) {
    if (l.Toma("FROM"_c, "SQL"_c)) {
        l.Fin();
        Emitir<SaltoFuera>(SaltoDeReporte::Adonde::FinDeSQL);
        return;
    }
    if (l.Hay()) l.NoSePractica();
    auto& salto = Emitir<Salto>();
    if (BloqueAbierto* bucle = BucleActual()) {
        bucle->alFinal.push_back(&salto.destino);
    } else if (!enForma_ && (EnInicio() || rutina_ == programa_->fin)) {
        Emitir<SaltoFuera>(SaltoDeReporte::Adonde::FinDeReporte);
        salto.destino = Aqui() - 1;
    }
}

void Compilador::LeerCONTINUE(Lectura& l) {
    l.Fin();
    const BloqueAbierto* bucle = BucleActual();
    if (bucle == nullptr) throw FallaDeSentencia{l.Primera(), "CONTINUE stands outside of a loop"};
    Emitir<Salto>(bucle->siguiente);
}

void Compilador::LeerSTOP(Lectura& l) {
    l.Fin();
    Emitir<SaltoFuera>(SaltoDeReporte::Adonde::FinDeSeleccion);
}

void Compilador::LeerLEAVE(Lectura& l) {
    if (!l.Toma("PROGRAM"_c)) l.Toma("LIST-PROCESSING"_c);
    if (l.Hay()) l.NoSePractica();
    Emitir<SaltoFuera>(SaltoDeReporte::Adonde::FinDeReporte);
}

}  // namespace qor::abap
