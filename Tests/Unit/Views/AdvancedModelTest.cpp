#include "Views/Settings/AdvancedModel.h"

#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

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
    store(SettingsKeys::selectedModel(QStringLiteral("openai")), QStringLiteral("gone"));
    attach().loadModels();
    EXPECT_EQ(picker(0)->label, QStringLiteral("Gemini Model"));
    EXPECT_EQ(picker(1)->label, QStringLiteral("Grok Model"));
    EXPECT_EQ(picker(2)->label, QStringLiteral("OpenAI Model"));
    EXPECT_EQ(picker(2)->index(), 0);
    EXPECT_EQ(defaults->text(SettingsKeys::selectedModel(QStringLiteral("openai"))), QStringLiteral("gone"));
    EXPECT_FALSE(defaults->contains(SettingsKeys::selectedModel(QStringLiteral("gemini"))));
    picker(2)->choose(1);
    EXPECT_EQ(defaults->text(SettingsKeys::selectedModel(QStringLiteral("openai"))), picker(2)->ids[1]);
}

TEST_F(AdvancedModelTest, theProviderIsChosenAmongAutoAndTheServices)
{
    attach();
    EXPECT_EQ(model->providerNames(), (QStringList{QStringLiteral("Auto"), QStringLiteral("Gemini"),
                                                   QStringLiteral("Grok"), QStringLiteral("OpenAI")}));
    EXPECT_EQ(model->providerIndex(), 0);
    model->chooseProvider(2);
    EXPECT_EQ(manager->providerOverride(), QStringLiteral("grok"));
    manager->setProviderOverride(QStringLiteral("unknown"));
    EXPECT_EQ(model->providerIndex(), -1);
}

TEST_F(AdvancedModelTest, theUpscaleMethodIsWrittenOnlyWhenChosen)
{
    attach();
    EXPECT_EQ(model->upscaleMethodIndex(), 0);
    EXPECT_FALSE(defaults->contains(SettingsKeys::kUpscaleMethod));
    model->chooseUpscaleMethod(1);
    EXPECT_EQ(defaults->text(SettingsKeys::kUpscaleMethod), QStringLiteral("local"));
}

} // namespace quorvane
