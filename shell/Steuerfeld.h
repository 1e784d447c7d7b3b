#pragma once
// A control array: N controls under one name, reached by an int index as in
// "imgCover(3)". Control i carries the objectName "Name(i)", so tests and other windows
// find it under the name the user's documentation gives. A place may stay empty.
#include <QString>
#include <QtGlobal>

#include <array>

template <class T, int N>
class Steuerfeld {
public:
    explicit constexpr Steuerfeld(const char* name)
        : m_name(name)
    {
    }

    T*& operator[](int i)
    {
        Q_ASSERT(i >= 0 && i < N);
        return m_elemente[size_t(i)];
    }
    T* operator[](int i) const
    {
        Q_ASSERT(i >= 0 && i < N);
        return m_elemente[size_t(i)];
    }
    static constexpr int Anzahl() { return N; }

    // The objectName of place i.
    QString Name(int i) const { return QStringLiteral("%1(%2)").arg(QLatin1String(m_name)).arg(i); }
    // Puts the control into place i under its name.
    T* setzen(int i, T* element)
    {
        element->setObjectName(Name(i));
        (*this)[i] = element;
        return element;
    }

    auto begin() const { return m_elemente.begin(); }
    auto end() const { return m_elemente.end(); }

private:
    const char* m_name;
    std::array<T*, N> m_elemente{};
};
