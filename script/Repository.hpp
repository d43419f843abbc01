#pragma once
// The program-wide store of named resources ("symbols"). Scripts add and drop them;
// components look them up by name in their constructors and borrow the data.
#include <memory>
#include <string>
#include <vector>

#include "script/Resource.hpp"
#include "shell/error.hpp"

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

// Collects the resources acquired while it lives (the component under construction),
// so that the component can keep them alive. A script that drops ("sub") a resource
// while a running component still uses it then frees it when that component ends,
// instead of leaving the component with a dangling pointer. Scopes nest.
class BorrowScope {
public:
    BorrowScope();
    ~BorrowScope();
    BorrowScope(const BorrowScope&) = delete;
    BorrowScope& operator=(const BorrowScope&) = delete;

    std::vector<std::shared_ptr<Resource>> take() { return std::move(borrowed_); }
    // Records `resource` in the innermost scope, if any.
    static void note(const std::shared_ptr<Resource>& resource);

private:
    BorrowScope* previous_;
    std::vector<std::shared_ptr<Resource>> borrowed_;
};

class Repository {
public:
    static constexpr int capacity = 256;
    static Repository& instance();

    void add(std::unique_ptr<Symbol> symbol, const std::string& name);
    void load(TextParser& parser);  // the "add" script command
    void sub(const std::string& name);
    Symbol* aquire(TextParser& parser);  // a name or an inline "const..." literal
    Symbol* aquire(const std::string& name);
    Symbol* find(const std::string& name) const;  // null when absent, logs nothing

    // The resource behind a parameter, checked to be of kind T: a wrong kind is a
    // fatal error naming the symbol, never a bad cast.
    template <class T>
    T& aquireAs(TextParser& parser) {
        return checkedKind<T>(aquire(parser));
    }
    template <class T>
    T& aquireAs(const std::string& name) {
        return checkedKind<T>(aquire(name));
    }

    int count() const { return static_cast<int>(symbols_.size()); }
    Symbol* at(int index) const { return symbols_[index].get(); }
    void clear();  // drops every symbol (shut-down and tests)

private:
    Repository() = default;
    void append(std::unique_ptr<Symbol> symbol);
    [[noreturn]] static void wrongKind(const Symbol& symbol, const char* wanted);

    template <class T>
    T& checkedKind(Symbol* symbol) {
        if (T* data = dynamic_cast<T*>(symbol->getData())) return *data;
        wrongKind(*symbol, T::staticKind());
    }

    std::vector<std::unique_ptr<Symbol>> symbols_;
};

}  // namespace vz
