import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "KeySection"

    Component {
        id: sections

        KeySection {
            width: 292
            title: "STRIPE"
            selected: false
            value: ""

            Item {
                objectName: "field"
                width: 100
                height: 60
            }
        }
    }

    property KeySection section: null

    function init() {
        makeWorld();
        section = make(sections);
    }

    function test_holdsItsTitleTheFieldsAndTheBadge() {
        const title = areaOf(all(section, SectionLabel)[0], section);
        const field = areaOf(findChild(section, "field"), section);
        const badge = areaOf(all(section, KeyStatusBadge)[0], section);

        compare(all(section, SectionLabel)[0].text, "STRIPE");
        compare([title.x, field.x, badge.x], [12, 12, 12]);
        compare(title.y, 12);
        compare(field.y - title.bottom, 10);
        compare(badge.y - field.bottom, 10);
        compare(section.height - badge.bottom, 12);
    }

    function test_showsItsPlatformsLastErrorUnderTheBadge() {
        const height = section.height;

        section.problem = "⚠ invalid key · 14:32";
        verify(waitForRendering(section));

        const problem = textOf(section, "⚠ invalid key · 14:32");
        const badge = areaOf(all(section, KeyStatusBadge)[0], section);
        compareFont(problem, 10, 400);
        compareInk(problem.color, 0.7);
        compare(areaOf(problem, section).x, 12);
        compare(areaOf(problem, section).y - badge.bottom, 10);
        compare(section.height - areaOf(problem, section).bottom, 12);
        section.problem = "";
        verify(waitForRendering(section));
        compare(section.height, height);
    }

    function test_hasAFaintBorder() {
        compareInk(section.borderColor, 0.1);
        compare(section.radius, 10);
    }

    function test_isOutlinedWhileItsPlatformIsChosen() {
        section.selected = true;

        compareAccent(section.borderColor, 1);
        compare(section.borderWidth, 1.5);
        compare(section.radius, 10);
        section.selected = false;
        compareInk(section.borderColor, 0.1);
    }

    function test_itsBadgeFollowsTheKey() {
        verify(textOf(section, "No key saved") !== null);

        section.value = "k";

        verify(textOf(section, "Key saved in Keychain") !== null);
    }
}
