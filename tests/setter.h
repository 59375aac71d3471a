/// What a test does to a store, kept as a value. It holds whatever can be called, as std::function does; the tests have
/// thousands, and this takes the compiler much less time.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

template <class Signature> class Setter;

template <class... Arguments> class Setter<void(Arguments...)> {
    struct Held {
        unsigned users = 1;
        virtual void call(Arguments... arguments) = 0;
        Held() = default;
        Held(const Held &) = delete;
        Held &operator=(const Held &) = delete;
        virtual ~Held() = default;
    };
    template <class Function> struct Holder final : Held {
        Function function;
        explicit Holder(Function set) : function(static_cast<Function &&>(set)) {}
        void call(Arguments... arguments) override { function(static_cast<Arguments &&>(arguments)...); }
    };

    Held *held_ = nullptr; ///< shared by the copies

public:
    Setter() = default;
    Setter(std::nullptr_t) {}
    template <class Function>
    requires(!std::is_same_v<std::remove_cvref_t<Function>, Setter>) Setter(Function set)
        : held_(new Holder<Function>(static_cast<Function &&>(set))) {}

    Setter(const Setter &other) : held_(other.held_) {
        if (held_) ++held_->users;
    }
    Setter &operator=(Setter other) {
        std::swap(held_, other.held_);
        return *this;
    }
    ~Setter() {
        if (held_ && --held_->users == 0) delete held_;
    }

    void operator()(Arguments... arguments) const { held_->call(static_cast<Arguments &&>(arguments)...); }
    explicit operator bool() const { return held_ != nullptr; }
};
