// A stand-in for json11, for where no installed one is to be had: the same names, as far as they are called
// here, and the same texts byte for byte. What json11 refuses is refused; only the words of a fault may
// differ, and where in a word or an escape it is found.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace json11 {

// A value that costs next to nothing to copy and never changes.
class Json final {
public:
    using array = std::vector<Json>;
    using object = std::map<std::string, Json>;

    Json() noexcept = default;  // null
    Json(std::nullptr_t) noexcept {}
    Json(double number) : Json(Value(number)) {}
    Json(int number) : Json(static_cast<double>(number)) {}
    Json(bool value) : Json(Value(value)) {}
    Json(std::string text) : Json(Value(std::move(text))) {}
    Json(const char* text) : Json(std::string(text)) {}
    Json(array elements) : Json(Value(std::move(elements))) {}
    Json(object members) : Json(Value(std::move(members))) {}
    Json(const std::vector<std::string>& texts) : Json(array(texts.begin(), texts.end())) {}
    Json(void*) = delete;  // would be a bool

    bool is_null() const { return !m_value; }
    bool is_number() const { return holds<double>(); }
    bool is_bool() const { return holds<bool>(); }
    bool is_string() const { return holds<std::string>(); }
    bool is_array() const { return holds<array>(); }
    bool is_object() const { return holds<object>(); }

    // What the value holds; of another type zero, false or nothing.
    double number_value() const { return held<double>(); }
    bool bool_value() const { return held<bool>(); }
    const std::string& string_value() const { return held<std::string>(); }
    const array& array_items() const { return held<array>(); }
    const object& object_items() const { return held<object>(); }

    // Null where there is no such element or member.
    const Json& operator[](std::size_t place) const;
    const Json& operator[](const std::string& name) const;

    bool operator==(const Json& other) const;

    // One line: the members by name, a number with up to 17 digits, one that is not finite as null.
    std::string dump() const;
    void dump(std::string& out) const;  // behind what is there

    // Null for a text that is no JSON or nests too deep, and what is wrong with it. Else the fault is left
    // alone.
    static Json parse(const std::string& text, std::string& fault);

private:
    using Value = std::variant<double, bool, std::string, array, object>;

    explicit Json(Value value);

    template <typename Type> bool holds() const { return std::get_if<Type>(m_value.get()) != nullptr; }
    template <typename Type> const Type& held() const
    {
        static const Type nothing{};
        const Type* const value = std::get_if<Type>(m_value.get());
        return value ? *value : nothing;
    }

    std::shared_ptr<const Value> m_value;  // none for null
};

}  // namespace json11
