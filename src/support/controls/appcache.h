#pragma once
// A picture made once and kept while the application runs. A function-local static QIcon or
// QPixmap would be destroyed after the application object, when Qt's image handling is gone;
// this one is released when the application ends and made again by a later application.

#include <QCoreApplication>

#include <memory>

template <class T, class Make> T& AppCached(Make make) {
    static std::unique_ptr<T> value;
    if (!value) {
        value = std::make_unique<T>(make());
        qAddPostRoutine([] { value.reset(); });
    }
    return *value;
}
