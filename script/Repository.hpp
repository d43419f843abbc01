#pragma once
// The store of named resources ("symbols") of one show. Scripts add and drop them;
// components look them up by name in their constructors and borrow the data.
#include <memory>
#include <string>
#include <vector>

#include "core/Resource.hpp"
#include "core/error.hpp"

namespace vz {

class TextParser;

class Symbol {
public:
    Symbol(std::unique_ptr<Resource> data) : data_(std::move(data)) {}
    virtual ~Symbol() = default;
    Resource* getData() const { return data_.get(); }
    const std::shared_ptr<Resource>& shared() const { return data_; }
    const std::string& name() const { return name_; }
    void setName(const std::string& name) { name_ = name; }

private:
    std::string name_;
    std::shared_ptr<Resource> data_;
};

class Repository {
public:
    static constexpr int capacity = 256;

    Repository() = default;
    Repository(const Repository&) = delete;
    Repository& operator=(const Repository&) = delete;

    void add(std::unique_ptr<Symbol> symbol, const std::string& name);
    void load(TextParser& parser);  // the "add" script command
    void sub(const std::string& name);
    // A name or an inline "const..." literal. `wanted`, the kind the caller asks for,
    // completes the message of a name that is missing.
    Symbol* aquire(TextParser& parser, const char* wanted = nullptr);
    Symbol* aquire(const std::string& name, const char* wanted = nullptr);
    Symbol* find(const std::string& name) const;  // null when absent, logs nothing

    // The resource a symbol holds, checked to be of kind T: a wrong kind is a fatal
    // error naming the symbol, never a bad cast.
    template <class T>
    static T& dataAs(const Symbol& symbol) {
        if (T* data = dynamic_cast<T*>(symbol.getData())) return *data;
        wrongKind(symbol, T::staticKind());
    }
    template <class T>
    T& aquireAs(const std::string& name) {
        return dataAs<T>(*aquire(name, T::staticKind()));
    }

    int count() const { return static_cast<int>(symbols_.size()); }
    Symbol* at(int index) const { return symbols_[index].get(); }
    void clear();  // drops every symbol (shut-down and tests)

private:
    void append(std::unique_ptr<Symbol> symbol);
    [[noreturn]] static void wrongKind(const Symbol& symbol, const char* wanted);

    std::vector<std::unique_ptr<Symbol>> symbols_;
};

}  // namespace vz
