-- SPDX-License-Identifier: GPL-3.0-or-later
-- A page's first heading becomes its title, or what its head names, as manual pages do; links between
-- pages lead to the HTML ones.

local function Text(inlines)
    return pandoc.utils.stringify(inlines)
end

function Link(link)
    if not link.target:match("^%a+:") then
        link.target = link.target:gsub("%.md$", ".html"):gsub("%.md#", ".html#")
    end
    return link
end

function Pandoc(page)
    local first = page.blocks[1]
    if page.meta.section then
        local name = Text(page.meta.title):lower()
        page.meta.pagetitle = name .. "(" .. Text(page.meta.section) .. ")"
        return page:walk({Header = function(header)
            header.level = header.level + 1
            return header
        end})
    end
    if first and first.t == "Header" and first.level == 1 then
        page.meta.pagetitle = Text(first.content)
        page.blocks:remove(1)
    end
    return page
end
