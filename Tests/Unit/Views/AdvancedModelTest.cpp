#include "Views/Settings/AdvancedModel.h"

#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

class AdvancedModelTest : public ManagerTest
{
  protected:
    AdvancedModel &attach()
    {
        start();
        model = std::make_unique<AdvancedModel>();
        model->setManager(manager.get());
        return *model;
    }
    ~AdvancedModelTest() override { model.reset(); }
    [[nodiscard]] ModelPicker *picker(int index) const { return qobject_cast<ModelPicker *>(model->models()[index]); }

    std::unique_ptr<AdvancedModel> model;
};

TEST_F(AdvancedModelTest, anUnknownModelShowsTheFirstAndIsNotOverwritten)
{
    store(SettingsKeys::selectedModel(u"openai"_s), u"gone"_s);
    attach().loadModels();
    EXPECT_EQ(picker(0)->label, u"Gemini Model"_s);
    EXPECT_EQ(picker(1)->label, u"Grok Model"_s);
    EXPECT_EQ(picker(2)->label, u"OpenAI Model"_s);
    EXPECT_EQ(picker(2)->index(), 0);
    EXPECT_EQ(defaults->text(SettingsKeys::selectedModel(u"openai"_s)), u"gone"_s);
    EXPECT_FALSE(defaults->contains(SettingsKeys::selectedModel(u"gemini"_s)));
    picker(2)->choose(1);
    EXPECT_EQ(defaults->text(SettingsKeys::selectedModel(u"openai"_s)), picker(2)->ids[1]);
}

TEST_F(AdvancedModelTest, theProviderIsChosenAmongAutoAndTheServices)
{
    attach();
    EXPECT_EQ(model->providerNames(), (QStringList{u"Auto"_s, u"Gemini"_s, u"Grok"_s, u"OpenAI"_s}));
    EXPECT_EQ(model->providerIndex(), 0);
    model->chooseProvider(2);
    EXPECT_EQ(manager->providerOverride(), u"grok"_s);
    manager->setProviderOverride(u"unknown"_s);
    EXPECT_EQ(model->providerIndex(), -1);
}

TEST_F(AdvancedModelTest, theUpscaleMethodIsWrittenOnlyWhenChosen)
{
    attach();
    EXPECT_EQ(model->upscaleMethodIndex(), 0);
    EXPECT_FALSE(defaults->contains(SettingsKeys::kUpscaleMethod));
    model->chooseUpscaleMethod(1);
    EXPECT_EQ(defaults->text(SettingsKeys::kUpscaleMethod), u"local"_s);
}

} // namespace quorvane
