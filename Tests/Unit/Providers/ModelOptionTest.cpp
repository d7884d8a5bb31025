#include "Platform/Network/HttpClient.h"
#include "Providers/ImageProvider.h"

#include <QSet>

#include <gtest/gtest.h>

namespace quorvane {

TEST(ModelOption, twoOptionsAreEqualOnlyWithBothTextsEqual)
{
    const ModelOption option{QStringLiteral("id"), QStringLiteral("label")};
    EXPECT_EQ(option, (ModelOption{QStringLiteral("id"), QStringLiteral("label")}));
    EXPECT_NE(option, (ModelOption{QStringLiteral("id"), QStringLiteral("other")}));
    EXPECT_NE(option, (ModelOption{QStringLiteral("other"), QStringLiteral("label")}));
    const QSet<ModelOption> options{option, option, {QStringLiteral("id"), QStringLiteral("other")}};
    EXPECT_EQ(options.size(), 2);
}

TEST(ModelOption, theCatalogueStandsInItsOrder)
{
    HttpClient http;
    QStringList catalogue;
    for (const auto &provider : allProviders(http)) {
        catalogue.append(provider->id() + QStringLiteral(" = ") + provider->name());
        for (const ModelOption &model : provider->models()) {
            catalogue.append(model.id + QStringLiteral(": ") + model.label);
        }
    }
    EXPECT_EQ(catalogue, (QStringList{
                             QStringLiteral("gemini = Gemini"),
                             QStringLiteral("gemini-2.5-flash-image: 2.5 Flash Image"),
                             QStringLiteral("gemini-3-pro-image-preview: 3 Pro Image"),
                             QStringLiteral("grok = Grok"),
                             QStringLiteral("grok-imagine-image: Imagine"),
                             QStringLiteral("grok-imagine-image-pro: Imagine Pro"),
                             QStringLiteral("openai = OpenAI"),
                             QStringLiteral("gpt-image-2: GPT Image 2"),
                             QStringLiteral("gpt-image-1: GPT Image 1"),
                             QStringLiteral("gpt-image-1.5: GPT Image 1.5"),
                             QStringLiteral("gpt-image-1-mini: GPT Image 1 Mini"),
                         }));
}

} // namespace quorvane
