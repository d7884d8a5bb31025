#include "Platform/Network/HttpClient.h"
#include "Providers/ImageProvider.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(ModelOption, twoOptionsAreEqualOnlyWithBothTextsEqual)
{
    const ModelOption option{u"id"_s, u"label"_s};
    EXPECT_EQ(option, (ModelOption{u"id"_s, u"label"_s}));
    EXPECT_NE(option, (ModelOption{u"id"_s, u"other"_s}));
    EXPECT_NE(option, (ModelOption{u"other"_s, u"label"_s}));
    const QSet<ModelOption> options{option, option, {u"id"_s, u"other"_s}};
    EXPECT_EQ(options.size(), 2);
}

TEST(ModelOption, theCatalogueStandsInItsOrder)
{
    HttpClient http;
    QStringList catalogue;
    for (const auto &provider : allProviders(http)) {
        catalogue.append(provider->id() + u" = "_s + provider->name());
        for (const ModelOption &model : provider->models()) {
            catalogue.append(model.id + u": "_s + model.label);
        }
    }
    EXPECT_EQ(catalogue, (QStringList{
                             u"gemini = Gemini"_s,
                             u"gemini-2.5-flash-image: 2.5 Flash Image"_s,
                             u"gemini-3-pro-image-preview: 3 Pro Image"_s,
                             u"grok = Grok"_s,
                             u"grok-imagine-image: Imagine"_s,
                             u"grok-imagine-image-pro: Imagine Pro"_s,
                             u"openai = OpenAI"_s,
                             u"gpt-image-2: GPT Image 2"_s,
                             u"gpt-image-1: GPT Image 1"_s,
                             u"gpt-image-1.5: GPT Image 1.5"_s,
                             u"gpt-image-1-mini: GPT Image 1 Mini"_s,
                         }));
}

} // namespace quorvane
