"""Generator of the sample resource world: pictures, archives and catalogues."""
