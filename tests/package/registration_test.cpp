#include "package/registration.h"

#include "package/designer_data_module.h"
#include "package_fixture.h"
#include "platform/core/base/exception.h"

namespace qx::test {

namespace {

std::string ExceptionText(const std::function<void()>& action) {
  try {
    action();
  } catch (const Exception& error) {
    return error.what();
  }
  return "(no exception)";
}

}  // namespace

TEST_F(PackageTest, RegisterPutsTheMenuItemBehindTheResourcesItemAndTheTabImagesUnderQuorvex) {
  InstallServices();
  Register();

  TqxWizardAssetsManager& wizard = Wizard();
  ASSERT_EQ(Menu->Added.size(), 1u);
  EXPECT_EQ(Menu->Added.front().Target, "ProjectViewResourcesItem");
  EXPECT_TRUE(Menu->Added.front().After);
  EXPECT_EQ(Menu->Added.front().Item, wizard.OpenMenuItem());

  ASSERT_NE(DesignerDataModule(), nullptr);
  EXPECT_EQ(Images->Images, &DesignerDataModule()->ImageListTabs);
  EXPECT_EQ(Images->Ident, "Quorvex");
  EXPECT_EQ(wizard.BaseImageEditorIndex(), 7);
}

TEST_F(PackageTest, AMissingServiceStopsRegistrationWithItsMessage) {
  TqxIdeServices::Instance().SetModuleServices(Host);
  EXPECT_EQ(ExceptionText(Register),
            "Cannot create Assets Manager menu Item in MainMenu. Sevice INTAService is unavailable");
  EXPECT_TRUE(TqxIdeServices::Instance().Wizards().empty());

  TqxIdeServices::Instance().SetNTAService(Menu);
  EXPECT_EQ(ExceptionText(Register),
            "Cannot create Assets Manager menu Item in MainMenu. Sevice INTAEditorViewServices is unavailable");
  EXPECT_TRUE(TqxIdeServices::Instance().Wizards().empty());

  // The deployment hook stands behind the wizard: a project opened now keeps
  // its deployment untouched.
  const auto project = Host->OpenProject(CopyDemo("Demo").string());
  EXPECT_FALSE(project->IsModified());

  Host->OpenProject(CopyDemo("Other").string());
  EXPECT_EQ(ExceptionText([] { OpenAssetsManagerDesigner(""); }),
            "Cannot open Assets Manager designer. Sevice IOTAEditorViewServices is unavailable");
}

TEST_F(PackageTest, TheItemShowsOnlyForAnActiveProjectOfTheXfmFramework) {
  InstallServices();
  Register();
  TAction& action = *Wizard().OpenAction();

  action.Update();
  EXPECT_FALSE(action.Visible());

  const auto demo = Host->OpenProject(CopyDemo("Demo").string());
  action.Update();
  EXPECT_TRUE(action.Enabled());

  for (const std::string type : {"fmx", "XFM", "VCL"}) {
    Host->OpenProject(CopyProject(type + "/shop_crlf_bom.dproj", type).string());
    action.Update();
    EXPECT_FALSE(action.Visible()) << type;
    EXPECT_FALSE(action.Execute()) << type;
  }
  EXPECT_EQ(Views->Count(), 0u);

  Host->SetActiveProject(demo);
  action.Update();
  EXPECT_TRUE(action.Execute());
  EXPECT_EQ(Views->Count(), 1u);
}

}  // namespace qx::test
