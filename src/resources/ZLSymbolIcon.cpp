#include "resources/ZLSymbolIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace {

QByteArray symbolDrawing(const QString& name)
{
    QFile file(":/images/%1.svg"_L1.arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class SymbolIconEngine final : public QIconEngine {
public:
    SymbolIconEngine(const QString& name, const QColor& color)
        : m_name(name)
        , m_color(color)
        , m_drawing(symbolDrawing(name))
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        QByteArray drawing = m_drawing;
        drawing.replace("currentColor", colorFor(mode).name().toLatin1());
        QSvgRenderer renderer(drawing);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolIconEngine(*this); }
    [[nodiscard]] QString key() const override { return u"ZLSymbolIcon"_s; }
    QString iconName() override { return m_drawing.isEmpty() ? QString() : m_name; }
    bool isNull() override { return m_drawing.isEmpty(); }

private:
    [[nodiscard]] QColor colorFor(QIcon::Mode mode) const
    {
        const QPalette palette = QGuiApplication::palette();
        if (mode == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::ButtonText);
        if (m_color.isValid())
            return m_color;
        return palette.color(
            QPalette::Active, mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
    }

    QString m_name;
    QColor m_color;
    QByteArray m_drawing;
};

}

// A static library's resources have to be asked for; the macro only works outside of namespaces.
static void registerSymbolDrawings()
{
    Q_INIT_RESOURCE(zelta);
}

QIcon ZLSymbolIcon::named(const QString& name)
{
    return named(name, QColor());
}

QIcon ZLSymbolIcon::named(const QString& name, const QColor& color)
{
    registerSymbolDrawings();
    return QIcon(new SymbolIconEngine(name, color));
}
