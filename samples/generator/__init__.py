# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

"""Generator of the sample resource world: pictures, archives and catalogues."""
