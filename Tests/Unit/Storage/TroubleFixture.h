#pragma once

#include "Storage/ImageStore.h"
#include "Support/Files.h"

#include <QDir>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

/// What a library holds before the trouble comes.
inline void fillLibrary()
{
    EXPECT_TRUE(ImageStore::saveImage(u"old.png"_s, "picture"));
    EXPECT_TRUE(ImageStore::savePrompt(u"lake"_s, u"old.png"_s));
    EXPECT_TRUE(ImageStore::saveFavorite(u"old.png"_s));
    EXPECT_TRUE(ImageStore::saveVariantLink(u"old.png"_s, u"large.png"_s));
}

/// Whatever came, nothing of it may have suffered.
inline void expectLibraryAsFilled(const QString &library)
{
    EXPECT_EQ(QDir(library).entryList(QDir::Files | QDir::Hidden, QDir::Name),
              (QStringList{u".lock"_s, u"favorites.json"_s, u"old.png"_s, u"prompts.json"_s, u"variants.json"_s}));
    EXPECT_EQ(contentOf(library + u"/old.png"_s), "picture");
    EXPECT_EQ(contentOf(library + u"/prompts.json"_s), "{\"old.png\":\"lake\"}");
    EXPECT_EQ(contentOf(library + u"/favorites.json"_s), "[\"old.png\"]");
    EXPECT_EQ(contentOf(library + u"/variants.json"_s), "{\"old.png\":\"large.png\"}");
}

/// More than any disk or limit of these tests holds.
inline const QString kLongText(200'000, 'x'_L1);

} // namespace quorvane
