#include "tests/app/builds/ConfigurationPageTest.h"
#include "tests/patience.h"

void ConfigurationPageTest::init()
{
    session = std::make_unique<SessionFixture>();
    design = session->create(u"d"_s);
    configuration = design->addBuildConfiguration(u"Debug"_s, &error);
    QVERIFY(configuration && configuration->setDescription(debug, &error));
    QVERIFY(design->saveToComponentFile(&error));
    error.clear();
    showPage(u"Debug"_s);
}

void ConfigurationPageTest::cleanup()
{
    delete page;
    session.reset();
}

void ConfigurationPageTest::showPage(const QString &name)
{
    delete page;
    page = BuildConfigurationPage::create(design, name);
    QVERIFY(page);
    page->resize(800, 800);
    page->show();
    QVERIFY(QTest::qWaitForWindowActive(page, patient()));
}

BuildDescription ConfigurationPageTest::inTheFile(const QString &name)
{
    const QString copy = session->path(u"copy/component.xml"_s);
    QByteArray bytes = SessionFixture::read(design->componentFileName());
    SessionFixture::write(copy, bytes.replace("<ipxact:name>d<", "<ipxact:name>copy<"));
    const IDesign *opened = session->open(copy);
    const BuildConfiguration *found = opened ? opened->buildConfiguration(name) : nullptr;
    const BuildDescription description = found ? found->description() : BuildDescription();
    if (opened)
        SessionFixture::manager()->closeDesign(opened->id(u"."_s), false);
    return description;
}
