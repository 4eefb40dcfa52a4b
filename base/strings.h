// The strings and containers of the whole system: text is UTF-16 on every platform.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ryv {

using CString = std::u16string;
using CStringView = std::u16string_view;

/// A growable array whose index operator is checked: an index outside the array throws
/// std::invalid_argument, which is the one exception that operations of this system raise on their own.
template <class T>
class CArray : public std::vector<T> {
public:
    using std::vector<T>::vector;

    typename std::vector<T>::reference operator[](std::size_t index) {
        check(index);
        return std::vector<T>::operator[](index);
    }
    typename std::vector<T>::const_reference operator[](std::size_t index) const {
        check(index);
        return std::vector<T>::operator[](index);
    }

    typename std::vector<T>::reference at(std::size_t index) { return (*this)[index]; }
    typename std::vector<T>::const_reference at(std::size_t index) const { return (*this)[index]; }

private:
    void check(std::size_t index) const {
        if (index >= this->size())
            throw std::invalid_argument("index outside the array");
    }
};

/// An ordered array of strings.
using CStringArray = CArray<CString>;

/// A list: contiguous, because lists here are read far more often than they are spliced.
template <class T>
using CList = std::vector<T>;

/// A list of strings.
using CStringList = CList<CString>;

} // namespace ryv
