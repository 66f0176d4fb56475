#include "platform/Color.h"
#include "workspace/theme/desktop/Appearance.h"
#include "workspace/theme/desktop/Contrast.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

namespace ospra {

namespace {

struct Look {
    const char* name;
    bool isDark;
    bool isHighContrast;
};

void PrintTo(const Look& look, std::ostream* out)
{
    *out << look.name;
}

// The theme as the program's files see it, through an engine of its own.
class ThemeTest : public testing::Test {
protected:
    ThemeTest()
    {
        m_engine.addImportPath("qrc:/qt/qml");
        QQmlComponent component(&m_engine);
        component.setData("import QtQml\nimport Ospra.Theme\nQtObject {\n"
                          "  readonly property QtObject theme: Theme\n"
                          "  function named(index: int): color { return Theme.named(index); }\n"
                          "  function mapNamed(index: int): color { return Theme.mapNamed(index); }\n}\n",
                          QUrl());
        m_holder.reset(component.create());
        EXPECT_TRUE(m_holder != nullptr) << component.errorString().toStdString();
        m_theme = m_holder->property("theme").value<QObject*>();
    }

    ~ThemeTest() override { Appearance::instance()->setOverrides({}); }

    void show(const Look& look) const
    {
        Appearance::instance()->setOverrides({{"isDark", look.isDark}, {"isHighContrast", look.isHighContrast}});
    }

    [[nodiscard]] QColor color(const char* token) const
    {
        const QVariant value = m_theme->property(token);
        EXPECT_TRUE(value.isValid()) << token;
        return value.value<QColor>();
    }

    [[nodiscard]] double number(const char* token) const { return m_theme->property(token).toDouble(); }

    [[nodiscard]] QColor named(const char* function, int index) const
    {
        QVariant result;
        const bool isCalled =
            QMetaObject::invokeMethod(m_holder.get(), function, Q_RETURN_ARG(QVariant, result), Q_ARG(int, index));
        EXPECT_TRUE(isCalled);
        return result.value<QColor>();
    }

    // A token, translucent or not, as it is seen on an opaque one.
    [[nodiscard]] QColor on(const char* token, const char* ground) const
    {
        return blended(color(token), color(ground));
    }

    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_holder;
    QObject* m_theme = nullptr;
};

class ThemeLookTest : public ThemeTest, public testing::WithParamInterface<Look> {};

INSTANTIATE_TEST_SUITE_P(Looks, ThemeLookTest,
                         testing::Values(Look{"dark", true, false}, Look{"light", false, false},
                                         Look{"highContrastDark", true, true}, Look{"highContrastLight", false, true}),
                         [](const auto& test) { return test.param.name; });

TEST_P(ThemeLookTest, textIsReadableOnEveryGround)
{
    show(GetParam());
    for (const char* text : {"text", "textSecondary", "textTertiary", "accent", "primaryTrack"}) {
        for (const char* ground : {"chrome", "sidebar", "content", "barMaterial", "menu"}) {
            SCOPED_TRACE(testing::Message() << text << " on " << ground);
            EXPECT_GE(contrastRatio(color(text), color(ground)), 4.5);
        }
        EXPECT_GE(contrastRatio(color(text), on("card", "content")), 4.5) << text << " on card";
    }
    EXPECT_GE(contrastRatio(color("textOnAccent"), color("accentFill")), 4.5);
    EXPECT_GE(contrastRatio(color("accent"), on("onTint", "chrome")), 4.5);
    EXPECT_GE(contrastRatio(color("text"), color("controlRaised")), 4.5);
    for (const char* ground : {"selection", "selectionInactive", "hover", "control"})
        for (const char* text : {"text", "textSecondary"})
            EXPECT_GE(contrastRatio(color(text), on(ground, "chrome")), 4.5) << text << " on " << ground;
}

TEST_P(ThemeLookTest, namedColoursAreReadableOnTheContent)
{
    show(GetParam());
    for (int index = 0; index <= static_cast<int>(Color::primaryTrack); ++index) {
        SCOPED_TRACE(colorName(static_cast<Color>(index)));
        if (index == static_cast<int>(Color::white) && !GetParam().isDark)
            continue; // never drawn there without its ring
        EXPECT_GE(contrastRatio(named("named", index), color("content")), 4.5);
    }
}

TEST_P(ThemeLookTest, theMapKeepsTheDarkValues)
{
    show({"dark", true, false});
    std::vector<QColor> dark;
    for (int index = 0; index <= static_cast<int>(Color::primaryTrack); ++index)
        dark.push_back(named("named", index));
    show(GetParam());
    for (int index = 0; index <= static_cast<int>(Color::primaryTrack); ++index)
        EXPECT_EQ(named("mapNamed", index), dark[static_cast<std::size_t>(index)]) << index;
    EXPECT_GE(contrastRatio(color("mapText"), color("mapGround")), 4.5);
}

TEST_F(ThemeTest, theAccentIsTheDesktopsAndLeavesTheDataAlone)
{
    show({"dark", true, false});
    const QColor green = color("green");
    Appearance::instance()->setOverrides({{"isDark", true}, {"accent", QColor("#8A0F5C")}});
    EXPECT_GE(contrastRatio(color("accent"), on("onTint", "chrome")), 4.5);
    EXPECT_EQ(color("accentFill").name(), "#8a0f5c");
    EXPECT_EQ(color("green"), green);
}

TEST_F(ThemeTest, motionAndSizesFollowTheUser)
{
    Appearance::instance()->setOverrides({{"fontSize", 13.0}, {"isMotionReduced", false}});
    EXPECT_EQ(number("menuDuration"), 100);
    EXPECT_EQ(number("controlHeight"), 26);
    Appearance::instance()->setOverrides({{"fontSize", 19.5}, {"isMotionReduced", true}});
    EXPECT_EQ(number("menuDuration"), 0);
    EXPECT_EQ(number("cameraDuration"), 0);
    EXPECT_EQ(number("crossFadeDuration"), 80);
    EXPECT_EQ(number("controlHeight"), 39);
    const auto* caption = m_theme->property("caption").value<QObject*>();
    EXPECT_NEAR(caption->property("pixelSize").toDouble(), 15.75, 0.01);
    Appearance::instance()->setOverrides({{"fontSize", 7.0}});
    EXPECT_EQ(caption->property("pixelSize").toDouble(), 9.0) << "no text is smaller than this";
}

} // namespace

} // namespace ospra
