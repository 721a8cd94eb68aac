// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

// While it lives, the locale's encoding is another one; false where that cannot be.
class LocaleCodec
{
public:
    explicit LocaleCodec(const char *name)
    {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        m_before = QTextCodec::codecForLocale();
        QTextCodec *codec = QTextCodec::codecForName(name);
        m_changed = codec;
        QTextCodec::setCodecForLocale(codec ? codec : m_before);
#else
        Q_UNUSED(name);
#endif
    }
    ~LocaleCodec()
    {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        QTextCodec::setCodecForLocale(m_before);
#endif
    }
    LocaleCodec(const LocaleCodec &) = delete;
    LocaleCodec &operator=(const LocaleCodec &) = delete;

    bool wasChanged() const
    {
        return m_changed;
    }

private:
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QTextCodec *m_before;
#endif
    bool m_changed = false;
};
